// SPDX-License-Identifier: GPL-3.0-or-later
// The one application object of this test program.
#include <gtest/gtest.h>

#include <QApplication>

#include <array>
#include <memory>
#include <string>

namespace {

class QtApplication final : public testing::Environment {
public:
    void SetUp() override { application_ = std::make_unique<QApplication>(count_, words_.data()); }

    void TearDown() override { application_.reset(); }

private:
    std::string name_ = "tests";
    std::array<char*, 2> words_{name_.data(), nullptr};
    int count_ = 1;
    std::unique_ptr<QApplication> application_;
};

const auto* const kApplication = testing::AddGlobalTestEnvironment(new QtApplication);

} // namespace
