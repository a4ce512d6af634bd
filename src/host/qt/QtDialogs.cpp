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

/// As the window wants it: "name (*.a *.b)".
QString shownFilter(const FileFilter& filter) {
    QStringList patterns;
    for (const std::string& pattern : filter.patterns) {
        patterns << shown(pattern);
    }
    return shown(filter.name) + " (" + patterns.join(' ') + ')';
}

void prepare(QFileDialog& window, const FileDialog& dialog, const QString& folder) {
    window.setWindowTitle(shown(dialog.title));
    window.setDirectory(folder);
    // The names of the filters are complete; the patterns behind them would only repeat them.
    window.setOption(QFileDialog::HideNameFilterDetails);
    QStringList filters;
    for (const FileFilter& filter : dialog.filters) {
        filters << shownFilter(filter);
    }
    window.setNameFilters(filters);
    window.setDefaultSuffix(shown(dialog.defaultExtension));
    if (!dialog.fileName.empty()) {
        window.selectFile(nameFrom(dialog.fileName));
    }
}

QString folderOfMusic() {
    const QString music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
    return QFileInfo(music).isDir() ? music : QDir::homePath();
}

/// The extension of the filter that is chosen in the window: "m3u" where it takes "*.m3u" first.
QString chosenExtension(const QFileDialog& window, const FileDialog& dialog) {
    // The window may leave out the patterns when it tells the filter.
    const QString chosen = window.selectedNameFilter();
    for (const FileFilter& filter : dialog.filters) {
        if (!filter.patterns.empty() &&
            (chosen == shown(filter.name) || chosen == shownFilter(filter))) {
            return shown(filter.patterns.front()).section('.', -1);
        }
    }
    return shown(dialog.defaultExtension);
}

/// Whether a name fits any of the filters.
bool fitsOne(const FileDialog& dialog, const QString& name) {
    return std::ranges::any_of(dialog.filters, [&name](const FileFilter& filter) {
        return std::ranges::any_of(filter.patterns, [&name](const std::string& pattern) {
            return QDir::match(shown(pattern), name);
        });
    });
}

/// What the window itself asks for a name that it knows to be complete, in its words.
bool mayReplace(QFileDialog& window, const QString& path) {
    return !QFileInfo::exists(path) ||
           QMessageBox::warning(&window, window.windowTitle(),
                                QFileDialog::tr("%1 already exists.\nDo you want to replace it?")
                                    .arg(QFileInfo(path).fileName()),
                                Button::Yes | Button::No, Button::No) == Button::Yes;
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
    for (const auto& [button, caption] : {std::pair{Button::Ok, &box.okCaption},
                                          {Button::Cancel, &box.cancelCaption},
                                          {Button::Yes, &box.yesCaption},
                                          {Button::No, &box.noCaption}}) {
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

void QtDialogs::beforeShown(QFileDialog& window, const char* name) {
    window.setObjectName(QString::fromUtf8(name));
    if (prepare_) {
        prepare_(window);
    }
}

std::vector<std::string> QtDialogs::choices(QFileDialog& window) {
    std::vector<std::string> paths;
    if (window.exec() == QDialog::Accepted) {
        for (const QString& name : window.selectedFiles()) {
            paths.push_back(pathFrom(name));
        }
        lastFolder_ = pathFrom(window.directory().absolutePath());
    }
    return paths;
}

std::vector<std::string> QtDialogs::openFiles(const FileDialog& dialog) {
    QFileDialog window(QApplication::activeWindow());
    window.setAcceptMode(QFileDialog::AcceptOpen);
    window.setFileMode(dialog.manyFiles ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    prepare(window, dialog, startFolder(dialog.folder));
    beforeShown(window, "openFiles");
    return choices(window);
}

std::optional<std::string> QtDialogs::saveFile(const FileDialog& dialog) {
    QFileDialog window(QApplication::activeWindow());
    window.setAcceptMode(QFileDialog::AcceptSave);
    window.setFileMode(QFileDialog::AnyFile);
    prepare(window, dialog, startFolder(dialog.folder));
    beforeShown(window, "saveFile");
    if (!dialog.addsFilterExtension) {
        return firstOf(choices(window));
    }
    const auto followFilter = [&] { window.setDefaultSuffix(chosenExtension(window, dialog)); };
    QObject::connect(&window, &QFileDialog::filterSelected, &window, followFilter);
    followFilter();
    while (auto chosen = firstOf(choices(window))) {
        const QString name = nameFrom(*chosen);
        if (fitsOne(dialog, QFileInfo(name).fileName())) {
            return chosen;
        }
        // The window takes what stands behind any dot for an extension: "Vol. 2".
        const QString whole = name + '.' + chosenExtension(window, dialog);
        if (mayReplace(window, whole)) {
            return pathFrom(whole);
        }
    }
    return std::nullopt;
}

std::optional<std::string> QtDialogs::chooseFolder(const FolderDialog& dialog) {
    QFileDialog window(QApplication::activeWindow(), shown(dialog.title),
                       startFolder(dialog.folder));
    window.setFileMode(QFileDialog::Directory);
    window.setOption(QFileDialog::ShowDirsOnly);
    beforeShown(window, "chooseFolder");
    return firstOf(choices(window));
}

} // namespace tovik::host
