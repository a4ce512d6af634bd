// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for a language file: loads it into a window and a menu, and changes it as a file
// of sections and keys.
#include "base/AtomicFile.h"
#include "base/Text.h"
#include "config/MultiLNG.h"
#include "config/Profile.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace {

using namespace tovik;

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

class CheckingTargets final : public config::TextTargets {
public:
    explicit CheckingTargets(const std::string& bytes) : bytes_(bytes) {}

    void setText(std::string_view, int, config::TextKind, std::string_view text) override {
        demand(text.size() <= config::kProfileValueWidth);
        demand(text == base::trimmed(text));
        demand(text.find_first_of("\r\n") == std::string_view::npos);
        demand(bytes_.find(text) != std::string::npos);
        demand(base::isUtf8(text) || !base::isUtf8(bytes_));
    }

private:
    const std::string& bytes_;
};

/// A data folder with the folder of languages; it goes at the end of the process.
class DataFolder {
public:
    DataFolder() {
        demand(::mkdtemp(path_.data()) != nullptr);
        std::filesystem::create_directory(path_ + "/Languages");
    }

    ~DataFolder() {
        std::error_code failure;
        std::filesystem::remove_all(path_, failure);
    }

    DataFolder(const DataFolder&) = delete;
    DataFolder& operator=(const DataFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

private:
    std::string path_ = std::filesystem::temp_directory_path() / "tovik-fuzz-XXXXXX";
};

void changes(const std::string& bytes) {
    const std::string set = config::withProfileValue(bytes, "Prompt", "item0", "new");
    demand(config::profileValue(set, "Prompt", "item0") == "new");
    demand(config::profileValue(set, "Error", "item0") ==
           config::profileValue(bytes, "Error", "item0"));
    demand(config::withProfileValue(set, "Prompt", "item0", "new") == set);
    const std::string without = config::withoutProfileKey(set, "Prompt", "item0");
    demand(without.size() < set.size());
    demand(config::withoutProfileSection(bytes, "Prompt").size() <= bytes.size());
    demand(config::profileKeys(bytes, "Prompt").size() <= bytes.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    static const DataFolder folder;
    demand(!base::replaceFile(folder.path() + "/Languages/Fuzz.lng", bytes, base::Flush::No));
    const host::Paths paths(folder.path());
    config::MultiLNG language(paths);
    CheckingTargets targets(bytes);
    for (std::size_t i = 0; i < config::kTextWindows; ++i) {
        language.attach(static_cast<config::TextWindow>(i), targets);
    }
    language.Language_File("Fuzz");
    language.Load_Main_Win_LNG();
    language.Load_Menu_Rip_LNG();
    demand(language.get_Prompt_String(0).size() <= config::kProfileValueWidth);
    changes(bytes);
    return 0;
}
