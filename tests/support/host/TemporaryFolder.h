// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of a test's own.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tovik::test {

/// Made empty with the object and removed with it, whatever access modes the test left.
class TemporaryFolder {
public:
    TemporaryFolder() : path_(std::filesystem::temp_directory_path() / "tovik-test-XXXXXX") {
        if (::mkdtemp(path_.data()) == nullptr) {
            throw std::runtime_error("no temporary folder: " + path_);
        }
    }

    ~TemporaryFolder() {
        namespace fs = std::filesystem;
        std::error_code failure;
        fs::permissions(path_, fs::perms::owner_all, failure);
        for (const auto& entry : fs::recursive_directory_iterator(path_, failure)) {
            if (entry.is_directory() && !entry.is_symlink()) {
                fs::permissions(entry.path(), fs::perms::owner_all, failure);
            }
        }
        fs::remove_all(path_, failure);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

    /// The path of a name inside.
    [[nodiscard]] std::string operator/(std::string_view name) const {
        return path_ + "/" + std::string(name);
    }

    /// Writes a file and the folders that lead to it; returns its path.
    std::string write(std::string_view name, std::string_view bytes) const {
        std::string path = *this / name;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::ofstream file(path, std::ios::binary);
        file << bytes;
        if (!file.flush()) {
            throw std::runtime_error("cannot write " + path);
        }
        return path;
    }

    /// A file's bytes.
    [[nodiscard]] std::string read(std::string_view name) const {
        std::ifstream file(*this / name, std::ios::binary);
        if (!file) {
            throw std::runtime_error("cannot read " + (*this / name));
        }
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }

private:
    std::string path_;
};

} // namespace tovik::test
