// SPDX-License-Identifier: GPL-3.0-or-later
// A file whose tags are edited.
#pragma once

#include "base/RegularFile.h"
#include "support/host/TemporaryFolder.h"
#include "tags/EditTags.h"
#include "tags/Samples.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace tovik::tags {

class EditTagsTest : public testing::Test {
protected:
    void write(const std::string& bytes) { std::ofstream(path_, std::ios::binary) << bytes; }

    [[nodiscard]] std::string file() const {
        std::string bytes;
        EXPECT_FALSE(base::readWholeFile(path_, bytes));
        return bytes;
    }

    static TagChange set(EditField field, const std::string& text) {
        TagChange change;
        change.texts.at(static_cast<std::size_t>(field)) = text;
        return change;
    }

    /// Changes a field of the second tag.
    std::error_code change(EditField field, const std::string& text) {
        return saveEditTags(path_, {.version1 = {}, .version2 = set(field, text)});
    }

    [[nodiscard]] std::string text(EditField field) const {
        return readEditTags(path_).version2.text(field);
    }

    /// Where the tag at the start ends by its own word.
    [[nodiscard]] std::size_t toldEnd() const {
        const std::string bytes = file();
        std::size_t size = 0;
        for (std::size_t i = 6; i < 10; ++i) {
            size = size << 7U | static_cast<unsigned char>(bytes.at(i));
        }
        return size + 10;
    }

    void copy(const std::string& name) {
        path_ = folder_.path() + "/" + name;
        std::filesystem::copy_file(std::string(std::getenv("TOVIK_MEDIA")) + "/" + name, path_);
    }

    test::TemporaryFolder folder_;
    std::string path_ = folder_.path() + "/song.mp3";
    const std::string sound_ = samples::sound(20);
};

} // namespace tovik::tags
