// SPDX-License-Identifier: GPL-3.0-or-later
// Files and folders for the lists of a dialog, with plain pictures. Interface thread; folders are
// read on a thread of its own, which asks for the pictures, too.
#pragma once

#include <QAbstractFileIconProvider>
#include <QApplication>
#include <QFileSystemModel>
#include <QIcon>
#include <QStyle>

namespace tovik::dialogs {

/// One picture for folders and one for files. Qt's own provider compares what each file holds with
/// hundreds of patterns to find the picture of its kind: among thousands of songs that takes longer
/// than adding them.
class PlainFileIcons : public QAbstractFileIconProvider {
public:
    explicit PlainFileIcons(const QStyle& style)
        : folder_(style.standardIcon(QStyle::SP_DirIcon)),
          file_(style.standardIcon(QStyle::SP_FileIcon)) {}

    [[nodiscard]] QIcon icon(const QFileInfo& info) const override {
        return info.isDir() ? folder_ : file_;
    }

    [[nodiscard]] QIcon icon(IconType type) const override {
        return type == IconType::File ? file_ : folder_;
    }

    /// The name of its kind, which is shown nowhere.
    [[nodiscard]] QString type(const QFileInfo& /*info*/) const override { return {}; }

private:
    QIcon folder_;
    QIcon file_;
};

/// The pictures are a base and no member: the model's thread, which asks for them, ends before.
class PlainFileModel final : private PlainFileIcons, public QFileSystemModel {
public:
    explicit PlainFileModel(QObject* parent)
        : PlainFileIcons(*QApplication::style()), QFileSystemModel(parent) {
        setIconProvider(this);
    }
};

} // namespace tovik::dialogs
