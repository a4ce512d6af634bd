// SPDX-License-Identifier: GPL-3.0-or-later
// Dialogs that a test reads and answers.
#pragma once

#include "host/Dialogs.h"

#include <deque>
#include <functional>
#include <utility>

namespace tovik::test {

/// Keeps every request. Answers come from the queues; an empty queue gives a box its default
/// answer and cancels a dialog.
class RecordingDialogs final : public host::Dialogs {
public:
    std::vector<host::MessageBox> boxes;
    std::vector<host::FileDialog> openDialogs;
    std::vector<host::FileDialog> saveDialogs;
    std::vector<host::FolderDialog> folderDialogs;

    std::deque<host::MessageAnswer> answers;
    std::deque<std::vector<std::string>> filesToOpen;
    std::deque<std::string> filesToSave;
    std::deque<std::string> folders;

    std::function<void()> onMessage; ///< runs while the next box stands

    host::MessageAnswer showMessage(const host::MessageBox& box) override {
        boxes.push_back(box);
        if (const auto meanwhile = std::exchange(onMessage, nullptr)) {
            meanwhile();
        }
        return take(answers).value_or(box.defaultAnswer);
    }

    [[nodiscard]] std::vector<std::string> openFiles(const host::FileDialog& dialog) override {
        openDialogs.push_back(dialog);
        return take(filesToOpen).value_or(std::vector<std::string>());
    }

    [[nodiscard]] std::optional<std::string> saveFile(const host::FileDialog& dialog) override {
        saveDialogs.push_back(dialog);
        return take(filesToSave);
    }

    [[nodiscard]] std::optional<std::string>
    chooseFolder(const host::FolderDialog& dialog) override {
        folderDialogs.push_back(dialog);
        return take(folders);
    }

private:
    template <typename T>
    static std::optional<T> take(std::deque<T>& queue) {
        if (queue.empty()) {
            return std::nullopt;
        }
        T first = std::move(queue.front());
        queue.pop_front();
        return first;
    }
};

} // namespace tovik::test
