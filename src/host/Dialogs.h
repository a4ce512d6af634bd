// SPDX-License-Identifier: GPL-3.0-or-later
// What the program asks or tells the user outside its own windows. Interface thread. Other
// handlers run while a dialog is open. Names are absolute paths, as bytes.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tovik::host {

enum class MessageIcon { None, Critical, Question, Exclamation, Information };
enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class MessageAnswer { Ok, Cancel, Yes, No };

/// The title of a box whose subject has no title of its own.
inline constexpr const char* kProgramTitle = "Tovik";

/// A box with a text and buttons. The default answer is the button that Enter presses.
struct MessageBox {
    std::string text{};
    std::string title{};
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
    MessageAnswer defaultAnswer = MessageAnswer::Ok;
    std::string okCaption{};     ///< empty: the system's word for that button
    std::string cancelCaption{}; ///< the same, as are the others
    std::string yesCaption{};
    std::string noCaption{};
};

/// One line of a file dialog's filter, such as {"Audio files (*.mp3)", {"*.mp3", "*.mp?"}}: the
/// name is shown as it is.
struct FileFilter {
    std::string name{};
    std::vector<std::string> patterns{};
};

struct FileDialog {
    std::string title{};
    std::vector<FileFilter> filters{};
    std::string folder{};           ///< where it opens; empty: where the last one was, or the music
    std::string fileName{};         ///< the name proposed
    std::string defaultExtension{}; ///< added to a typed name that has none; without a dot
    bool manyFiles = false;         ///< open dialogs only
    /// Save dialogs only: a name that ends in none of the filters' extensions gets that of the
    /// chosen filter instead of the default one.
    bool addsFilterExtension = false;
};

struct FolderDialog {
    std::string title{};
    std::string folder{}; ///< as that of a file dialog
};

class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Shows the box and waits. While a box with the same text is open, or where nobody can
    /// answer, the default answer is given at once.
    virtual MessageAnswer showMessage(const MessageBox& box) = 0;

    /// Existing files, more than one only with `manyFiles`; empty when the user cancelled.
    [[nodiscard]] virtual std::vector<std::string> openFiles(const FileDialog& dialog) = 0;

    /// One name to write to; the user has confirmed that an existing file is replaced.
    [[nodiscard]] virtual std::optional<std::string> saveFile(const FileDialog& dialog) = 0;

    [[nodiscard]] virtual std::optional<std::string> chooseFolder(const FolderDialog& dialog) = 0;
};

} // namespace tovik::host
