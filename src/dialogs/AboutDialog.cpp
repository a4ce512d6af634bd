// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialogs/AboutDialog.h"

#include "ui/qt/DisplayText.h"

#include <QApplication>
#include <QFont>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIcon>
#include <QVBoxLayout>

namespace tovik::dialogs {

namespace {

constexpr int kIconSize = 64;
constexpr double kNameSize = 1.8; ///< times the size of the rest
constexpr int kShownLibraries = 6;

QLabel& makeLabel(const char* name) {
    auto* const label = new QLabel;
    label->setObjectName(QString::fromUtf8(name));
    label->setWordWrap(true);
    return *label;
}

} // namespace

AboutDialog::AboutDialog(window::frmAbout& logic, config::MultiLNG& language,
                         const host::Dispatcher& dispatcher, QWidget* parent)
    : Dialog(parent), logic_(logic), language_(language), dispatcher_(dispatcher),
      version_(new QLabel), libraries_(new QPlainTextEdit), close_(new QPushButton(this)),
      update_(new QPushButton(this)) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(QStringLiteral("About"));
    auto* const icon = new QLabel;
    icon->setPixmap(QApplication::windowIcon().pixmap(kIconSize));
    auto* const name = new QLabel(QStringLiteral("Tovik"));
    name->setObjectName(QStringLiteral("ProgramName"));
    QFont large = name->font();
    large.setPointSizeF(large.pointSizeF() * kNameSize);
    large.setBold(true);
    name->setFont(large);
    version_->setObjectName(QStringLiteral("VersionText"));
    version_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    version_->setFocusPolicy(Qt::NoFocus);
    libraries_->setObjectName(QStringLiteral("Libraries"));
    libraries_->setReadOnly(true);
    libraries_->setTabChangesFocus(true);
    libraries_->setMinimumHeight(kShownLibraries * libraries_->fontMetrics().lineSpacing());
    QLabel& librariesCaption = makeLabel("LibrariesCaption");
    librariesCaption.setBuddy(libraries_);

    auto* const head = new QGridLayout;
    head->addWidget(icon, 0, 0, 3, 1, Qt::AlignTop);
    head->addWidget(name, 0, 1);
    head->addWidget(&makeLabel("Label2"), 1, 1);
    auto* const versionLine = new QHBoxLayout;
    auto* const versionCaption = new QLabel;
    versionCaption->setObjectName(QStringLiteral("Label4"));
    versionLine->addWidget(versionCaption);
    versionLine->addWidget(version_, 1);
    head->addLayout(versionLine, 2, 1);
    head->setColumnStretch(1, 1);
    head->setColumnMinimumWidth(0, kIconSize + kIconSize / 4);

    update_->setObjectName(QStringLiteral("Command1_1"));
    update_->setAutoDefault(false);
    close_->setObjectName(QStringLiteral("Command1_0"));
    close_->setDefault(true);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(update_);
    buttons->addStretch(1);
    buttons->addWidget(close_);

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addWidget(&makeLabel("Licence"));
    layout->addWidget(&librariesCaption);
    layout->addWidget(libraries_, 1);
    layout->addLayout(buttons);
    setMinimumWidth(420);

    connect(close_, &QPushButton::clicked, this, &QDialog::reject);
    connect(update_, &QPushButton::clicked, this,
            [this] { dispatcher_.run([this] { logic_.Command1_Click(); }); });
    close_->setFocus();
}

void AboutDialog::load() {
    dispatcher_.run([this] { logic_.Form_Load(); });
    dispatcher_.run([this] {
        language_.Load_About();
        language_.loadAboutWords();
    });
    version_->setText(ui::displayString(logic_.version()));
    QString libraries;
    for (const std::string& library : logic_.libraries()) {
        libraries += (libraries.isEmpty() ? "" : "\n") + ui::displayString(library);
    }
    libraries_->setPlainText(libraries);
    update_->setEnabled(logic_.canUpdate());
    update_->setToolTip(logic_.canUpdate() ? QString()
                                           : ui::displayString(texts_.keptText("NoUpdater")));
}

} // namespace tovik::dialogs
