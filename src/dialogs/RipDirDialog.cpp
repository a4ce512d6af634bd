// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/RipDirDialog.h"

#include "ui/qt/DisplayText.h"

#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tovik::dialogs {

namespace {

using Button = preferences::frmRipDir::Button;

constexpr QSize kSize{480, 400};

} // namespace

RipDirDialog::RipDirDialog(preferences::frmRipDir& logic, config::MultiLNG& language,
                           const host::Dispatcher& dispatcher, QWidget* parent)
    : Dialog(parent), logic_(logic), language_(language), dispatcher_(dispatcher),
      path_(new QLineEdit(this)), tree_(new QTreeView(this)), folders_(new QFileSystemModel(this)),
      ok_(new QPushButton(this)) {
    setObjectName(QStringLiteral("frmRipDir"));
    setWindowTitle(ui::displayString(preferences::frmRipDir::kCaption));
    path_->setObjectName(QStringLiteral("Text1"));
    tree_->setObjectName(QStringLiteral("Dir1"));
    folders_->setFilter(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Drives);
    folders_->setRootPath(QStringLiteral("/"));
    tree_->setModel(folders_);
    tree_->setHeaderHidden(true);
    for (int column = 1; column < folders_->columnCount(); ++column) {
        tree_->hideColumn(column);
    }
    ok_->setObjectName(QStringLiteral("Command1_0"));
    ok_->setDefault(true);
    auto* const cancel = new QPushButton(this);
    cancel->setObjectName(QStringLiteral("Command1_1"));

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(path_);
    layout->addWidget(tree_, 1);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok_);
    buttons->addWidget(cancel);
    layout->addLayout(buttons);
    resize(kSize);

    connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { path_->setText(folders_->filePath(current)); });
    // What the model reads comes later, and moves what is shown already.
    connect(folders_, &QFileSystemModel::directoryLoaded, this, [this] { scrollToPlace(); });
    connect(path_, &QLineEdit::textChanged, this, [this](const QString& path) {
        ok_->setEnabled(preferences::frmRipDir::mayTake(QFile::encodeName(path).toStdString()));
    });
    connect(ok_, &QPushButton::clicked, this, [this] { press(Button::ok); });
    connect(cancel, &QPushButton::clicked, this, [this] { press(Button::cancel); });
}

void RipDirDialog::load() {
    dispatcher_.run([this] {
        language_.Load_Outputpath();
        language_.loadPreferenceWords();
    });
    showPath(QFile::decodeName(QByteArray::fromStdString(logic_.folder())));
}

void RipDirDialog::showPath(const QString& path) {
    const QString shown = path.isEmpty() ? QDir::homePath() : path;
    // The folder may be told by a name that is not there: its text stays, and the tree stands on
    // the nearest one that is. Without a place the tree would go to its first when it gets the
    // keyboard.
    const QSignalBlocker quiet(tree_->selectionModel());
    QString nearest = shown;
    while (!folders_->index(nearest).isValid() && nearest.contains('/')) {
        nearest.truncate(nearest.lastIndexOf('/'));
    }
    tree_->setCurrentIndex(folders_->index(nearest.isEmpty() ? QDir::rootPath() : nearest));
    scrollToPlace();
    path_->setText(shown);
    path_->selectAll();
    path_->setFocus();
}

void RipDirDialog::scrollToPlace() {
    tree_->scrollTo(tree_->currentIndex(), QAbstractItemView::PositionAtCenter);
}

void RipDirDialog::press(Button button) {
    dispatcher_.run([&] {
        if (logic_.Command1_Click(button, QFile::encodeName(path_->text()).toStdString())) {
            done(button == Button::ok ? Accepted : Rejected);
        }
    });
}

} // namespace tovik::dialogs
