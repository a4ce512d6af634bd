// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagWork.h"

namespace tovik::tags {

namespace {

class DirectWork final : public TagWork {
public:
    void run(const std::function<void()>& work) override { work(); }
};

} // namespace

TagWork& TagWork::direct() {
    static DirectWork work; // without a state
    return work;
}

} // namespace tovik::tags
