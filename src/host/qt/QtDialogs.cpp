// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/QtDialogs.h"

#include "base/PathText.h"
#include "base/Windows1252.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStandardPaths>

#include <algorithm>
#include <array>
#include <utility>

namespace tovik::host {

namespace {

using Button = QMessageBox::StandardButton;

constexpr std::array kIcons{
    std::pair{MessageIcon::None, QMessageBox::NoIcon},
    std::pair{MessageIcon::Critical, QMessageBox::Critical},
    std::pair{MessageIcon::Question, QMessageBox::Question},
    std::pair{MessageIcon::Exclamation, QMessageBox::Warning},
    std::pair{MessageIcon::Information, QMessageBox::Information},
};

constexpr std::array kButtons{
    std::pair{MessageButtons::Ok, QMessageBox::StandardButtons(Button::Ok)},
    std::pair{MessageButtons::OkCancel, Button::Ok | Button::Cancel},
    std::pair{MessageButtons::YesNo, Button::Yes | Button::No},
    std::pair{MessageButtons::YesNoCancel, Button::Yes | Button::No | Button::Cancel},
};

constexpr std::array kAnswers{
    std::pair{MessageAnswer::Ok, Button::Ok},
    std::pair{MessageAnswer::Cancel, Button::Cancel},
    std::pair{MessageAnswer::Yes, Button::Yes},
    std::pair{MessageAnswer::No, Button::No},
};

template <typename Table, typename Key>
auto lookUp(const Table& table, Key key) {
    return std::find_if(table.begin(), table.end(),
                        [key](const auto& row) { return row.first == key; })
        ->second;
}

QString shown(const std::string& text) {
    return QString::fromStdString(base::displayText(text));
}

QString nameFrom(const std::string& path) {
    return QFile::decodeName(path.c_str());
}

std::string pathFrom(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

void prepare(QFileDialog& window, const FileDialog& dialog, const QString& folder) {
    window.setWindowTitle(shown(dialog.title));
    window.setDirectory(folder);
    // The names of the filters are complete; the patterns behind them would only repeat them.
    window.setOption(QFileDialog::HideNameFilterDetails);
    QStringList filters;
    for (const FileFilter& filter : dialog.filters) {
        QStringList patterns;
        for (const std::string& pattern : filter.patterns) {
            patterns << shown(pattern);
        }
        filters << shown(filter.name) + " (" + patterns.join(' ') + ')';
    }
    window.setNameFilters(filters);
    window.setDefaultSuffix(shown(dialog.defaultExtension));
    if (!dialog.fileName.empty()) {
        window.selectFile(nameFrom(dialog.fileName));
    }
}

/// What the user chose; empty when the dialog was cancelled.
std::vector<std::string> choices(QFileDialog& window, std::string& lastFolder) {
    std::vector<std::string> paths;
    if (window.exec() == QDialog::Accepted) {
        for (const QString& name : window.selectedFiles()) {
            paths.push_back(pathFrom(name));
        }
        lastFolder = pathFrom(window.directory().absolutePath());
    }
    return paths;
}

QString folderOfMusic() {
    const QString music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    return QFileInfo(music).isDir() ? music : QDir::homePath();
}

std::optional<std::string> firstOf(const std::vector<std::string>& paths) {
    return paths.empty() ? std::nullopt : std::optional(paths.front());
}

} // namespace

MessageAnswer QtDialogs::showMessage(const MessageBox& box) {
    const auto [place, isNew] = openTexts_.insert(box.text);
    if (!isNew) {
        if (log_) {
            log_(box);
        }
        return box.defaultAnswer;
    }
    QMessageBox window(lookUp(kIcons, box.icon), shown(box.title), shown(box.text),
                       lookUp(kButtons, box.buttons), QApplication::activeWindow());
    window.setTextFormat(Qt::PlainText);
    window.setDefaultButton(lookUp(kAnswers, box.defaultAnswer));
    for (const auto& [button, caption] :
         {std::pair{Button::Ok, &box.okCaption}, {Button::Cancel, &box.cancelCaption}}) {
        if (QAbstractButton* const widget = window.button(button);
            widget != nullptr && !caption->empty()) {
            widget->setText(shown(*caption));
        }
    }
    const int pressed = window.exec();
    openTexts_.erase(box.text);
    const auto* const answer =
        std::find_if(kAnswers.begin(), kAnswers.end(),
                     [pressed](const auto& row) { return row.second == pressed; });
    return answer == kAnswers.end() ? box.defaultAnswer : answer->first;
}

/// An empty name would be the list of all drives.
QString QtDialogs::startFolder(const std::string& wanted) const {
    const QString folder = nameFrom(wanted.empty() ? lastFolder_ : wanted);
    return folder.isEmpty() ? folderOfMusic() : folder;
}

std::vector<std::string> QtDialogs::openFiles(const FileDialog& dialog) {
    QFileDialog window(QApplication::activeWindow());
    window.setAcceptMode(QFileDialog::AcceptOpen);
    window.setFileMode(dialog.manyFiles ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    prepare(window, dialog, startFolder(dialog.folder));
    return choices(window, lastFolder_);
}

std::optional<std::string> QtDialogs::saveFile(const FileDialog& dialog) {
    QFileDialog window(QApplication::activeWindow());
    window.setAcceptMode(QFileDialog::AcceptSave);
    window.setFileMode(QFileDialog::AnyFile);
    prepare(window, dialog, startFolder(dialog.folder));
    return firstOf(choices(window, lastFolder_));
}

std::optional<std::string> QtDialogs::chooseFolder(const FolderDialog& dialog) {
    QFileDialog window(QApplication::activeWindow(), shown(dialog.title),
                       startFolder(dialog.folder));
    window.setFileMode(QFileDialog::Directory);
    window.setOption(QFileDialog::ShowDirsOnly);
    return firstOf(choices(window, lastFolder_));
}

} // namespace tovik::host
