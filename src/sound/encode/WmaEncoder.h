// SPDX-License-Identifier: GPL-3.0-or-later
// A WMA file that is written on a thread of its own. Interface thread.
#pragma once

#include "sound/encode/Encoder.h"
#include "sound/encode/WmaFile.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tovik::sound {

class WmaEncoder final : public Encoder {
public:
    using Tags = std::vector<std::pair<std::string, std::string>>;

    /// Has the file opened.
    WmaEncoder(std::string path, const WmaForm& form);

    /// Before the first samples; later ones are refused.
    bool setTag(std::string name, std::string value);

private:
    struct Shared;

    explicit WmaEncoder(std::shared_ptr<Shared> shared);

    std::shared_ptr<Shared> shared_;
};

} // namespace tovik::sound
