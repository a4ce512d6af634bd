// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/OpenDirectoryDialog.h"

#include "dialogs/PlainFileModel.h"

#include <QDir>
#include <QFile>
#include <QGridLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPushButton>

namespace tovik::dialogs {

namespace {

constexpr QSize kSize{520, 420};

QPushButton* makeButton(QWidget* parent, const char* name, const char* caption) {
    auto* const button = new QPushButton(QString::fromUtf8(caption), parent);
    button->setObjectName(QString::fromLatin1(name));
    return button;
}

} // namespace

OpenDirectoryDialog::OpenDirectoryDialog(player::frmOpenDirectory& logic,
                                         config::MultiLNG& language,
                                         const host::Dispatcher& dispatcher, QWidget* parent)
    : Dialog(parent), logic_(logic), language_(language), dispatcher_(dispatcher),
      folders_(new PlainFileModel(this)), files_(new PlainFileModel(this)),
      tree_(new QTreeView(this)), list_(new QListView(this)), subfolders_(new QCheckBox(this)) {
    setObjectName(QStringLiteral("frmOpenDirectory"));
    setWindowTitle(QStringLiteral("Add folder"));
    resize(kSize);
    tree_->setObjectName(QStringLiteral("FolderTreeview1"));
    folders_->setFilter(QDir::Dirs | QDir::NoDotAndDotDot);
    tree_->setModel(folders_);
    tree_->setRootIndex(folders_->setRootPath(QDir::rootPath()));
    tree_->setHeaderHidden(true);
    for (int column = 1; column < folders_->columnCount(); ++column) {
        tree_->hideColumn(column);
    }
    list_->setObjectName(QStringLiteral("File1"));
    files_->setFilter(QDir::Files | QDir::Hidden);
    list_->setModel(files_);
    list_->setSelectionMode(QAbstractItemView::NoSelection);
    subfolders_->setObjectName(QStringLiteral("Check1"));
    subfolders_->setText(QStringLiteral("Search sub-folders"));
    auto* const add = makeButton(this, "Command1", "&Add");
    auto* const cancel = makeButton(this, "Command2", "&Cancel");
    add->setDefault(true);

    auto* const layout = new QGridLayout(this);
    layout->addWidget(tree_, 0, 0);
    layout->addWidget(list_, 0, 1, 1, 2);
    layout->addWidget(subfolders_, 1, 0);
    layout->addWidget(add, 1, 1);
    layout->addWidget(cancel, 1, 2);
    layout->setColumnStretch(0, 1);

    connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { showFiles(); });
    // What the model reads comes later, and moves what is shown already.
    connect(folders_, &QFileSystemModel::directoryLoaded, this,
            [this] { tree_->scrollTo(tree_->currentIndex()); });
    connect(add, &QPushButton::clicked, this, [this] { accept(); });
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
}

void OpenDirectoryDialog::load() {
    const bool again = isVisible();
    dispatcher_.run([this] { logic_.Form_Load(); });
    dispatcher_.run([this] { language_.Load_FRM_addDir_LNG(); });
    setWindowFlag(Qt::WindowStaysOnTopHint, logic_.staysOnTop());
    if (again) {
        return; // what the user has chosen since stays
    }
    choose(logic_.folder());
    if (!tree_->currentIndex().isValid()) {
        choose(QFile::encodeName(QDir::homePath()).toStdString());
    }
}

void OpenDirectoryDialog::choose(const std::string& folder) {
    const QModelIndex index = folders_->index(QFile::decodeName(folder.c_str()));
    if (!folder.empty() && index.isValid()) {
        tree_->setCurrentIndex(index);
        tree_->expand(index);
        tree_->scrollTo(index);
    }
}

QString OpenDirectoryDialog::chosen() const {
    return folders_->filePath(tree_->currentIndex());
}

void OpenDirectoryDialog::showFiles() {
    list_->setRootIndex(files_->setRootPath(chosen()));
}

void OpenDirectoryDialog::accept() {
    hide();
    dispatcher_.run([this] {
        logic_.Command1_Click(QFile::encodeName(chosen()).toStdString(), subfolders_->isChecked());
    });
}

void OpenDirectoryDialog::reject() {
    dispatcher_.run([this] { logic_.Command2_Click(); });
    Dialog::reject();
}

} // namespace tovik::dialogs
