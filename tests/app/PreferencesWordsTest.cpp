// SPDX-License-Identifier: GPL-3.0-or-later
// What the windows of the preferences say, in each language that comes with the player: words,
// names for screen readers, mnemonics, room.
#include "app/DialogRig.h"
#include "ui/Mnemonic.h"

#include <map>
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <set>

namespace tovik::test {
namespace {

using preferences::Page;
using window::WindowId;

constexpr QSize kSmallScreen{1024, 600};

class PreferencesWords : public DialogRig, public testing::WithParamInterface<const char*> {
protected:
    PreferencesWords() {
        set("CLNG", GetParam());
        begin();
    }

    void onEachPage(const std::function<void(QDialog&, int)>& act) {
        with(WindowId::preferences, [&](QDialog& dialog) {
            auto& tabs = control<QTabWidget>(dialog, "TabStrip1");
            for (int page = 0; page < tabs.count(); ++page) {
                tabs.setCurrentIndex(page);
                act(dialog, page);
            }
        });
    }

    /// What bears words of its own on a widget; nothing for a widget without any.
    static std::optional<QString> wordsOf(const QWidget& widget) {
        if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
            return button->text();
        }
        if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
            return label->pixmap().isNull() ? std::optional(label->text()) : std::nullopt;
        }
        if (const auto* const box = qobject_cast<const QGroupBox*>(&widget)) {
            return box->title();
        }
        return std::nullopt;
    }

    /// The parts of other widgets are not asked: they have no names of ours.
    static bool isOurs(const QWidget& widget) {
        return !widget.objectName().isEmpty() && !widget.objectName().startsWith("qt_");
    }

    static void expectWordsAndNames(QDialog& dialog, const std::string& where) {
        EXPECT_FALSE(dialog.windowTitle().isEmpty()) << where;
        int named = 0;
        for (QWidget* const widget : dialog.findChildren<QWidget*>()) {
            if (!widget->isVisible() || !isOurs(*widget)) {
                continue;
            }
            const std::string name = where + " " + widget->objectName().toStdString();
            if (const auto words = wordsOf(*widget)) {
                EXPECT_FALSE(words->isEmpty()) << name;
            }
            if ((widget->focusPolicy() & Qt::TabFocus) != 0) {
                QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(widget);
                ASSERT_NE(access, nullptr) << name;
                EXPECT_FALSE(access->text(QAccessible::Name).isEmpty()) << name;
                ++named;
            }
        }
        EXPECT_GE(named, 2) << where;
    }

    static void expectOwnMnemonics(QDialog& dialog, const std::string& where) {
        std::map<QString, std::string> owners;
        for (QWidget* const widget : dialog.findChildren<QWidget*>()) {
            const auto words = wordsOf(*widget);
            const bool path = widget->objectName() == "Label1" || widget->objectName() == "Label3";
            if (!widget->isVisible() || !words || path) {
                continue;
            }
            const ui::Mnemonic mnemonic = ui::mnemonicOf(words->toStdString());
            if (!mnemonic.letter) {
                continue;
            }
            const QString letter =
                QString::fromStdString(mnemonic.text.substr(*mnemonic.letter)).left(1).toLower();
            const auto [owner, isNew] = owners.emplace(letter, widget->objectName().toStdString());
            EXPECT_TRUE(isNew) << where << ": " << letter.toStdString() << " is of "
                               << owner->second << " and " << widget->objectName().toStdString();
        }
        EXPECT_GE(owners.size(), 2U) << where;
    }
};

TEST_P(PreferencesWords, everythingIsNamedOnEachPage) {
    onEachPage([](QDialog& dialog, int page) {
        expectWordsAndNames(dialog, "page " + std::to_string(page));
    });
}

TEST_P(PreferencesWords, noTwoMnemonicsOfAPageAreTheSame) {
    onEachPage([](QDialog& dialog, int page) {
        expectOwnMnemonics(dialog, "page " + std::to_string(page));
    });
}

TEST_P(PreferencesWords, everyControlIsReachedByAMnemonic) {
    // A list of its own page has the focus at once, and the buttons of a frame are read on the way.
    const std::set<QString> without = {"List1", "VersionHist", "Shortcuts", "TabStrip1"};
    onEachPage([&](QDialog& dialog, int page) {
        std::set<const QWidget*> reached;
        const auto marked = [](const QString& words) {
            return ui::mnemonicOf(words.toStdString()).letter.has_value();
        };
        for (const QLabel* const label : dialog.findChildren<QLabel*>()) {
            if (label->buddy() != nullptr && marked(label->text())) {
                reached.insert(label->buddy());
            }
        }
        for (const QGroupBox* const box : dialog.findChildren<QGroupBox*>()) {
            if (marked(box->title())) {
                for (const QWidget* const inside : box->findChildren<QWidget*>()) {
                    reached.insert(inside);
                }
            }
        }
        int seen = 0;
        for (const preferences::ControlRow& row : preferences::controlTable()) {
            const QString name = QString::fromUtf8(row.name.data(), qsizetype(row.name.size()));
            const auto& widget = control<QWidget>(dialog, name);
            if (static_cast<int>(row.page) == page && !without.contains(name)) {
                const auto* const button = qobject_cast<const QAbstractButton*>(&widget);
                EXPECT_TRUE(reached.contains(&widget) ||
                            (button != nullptr && marked(button->text())))
                    << row.name;
                ++seen;
            }
        }
        for (const char* const name : {"Command1", "Command5", "Command7"}) {
            EXPECT_TRUE(marked(control<QAbstractButton>(dialog, name).text())) << name;
        }
        EXPECT_TRUE(seen > 0 || page >= static_cast<int>(Page::versionHistory)) << page;
    });
}

TEST_P(PreferencesWords, theWindowFitsASmallScreen) {
    onEachPage([](QDialog& dialog, int) {
        EXPECT_LE(dialog.width(), kSmallScreen.width());
        EXPECT_LE(dialog.height(), kSmallScreen.height());
        EXPECT_LE(dialog.minimumSizeHint().width(), kSmallScreen.width());
        EXPECT_LE(dialog.minimumSizeHint().height(), kSmallScreen.height());
    });
}

TEST_P(PreferencesWords, slidersOfAFrameBeginAndEndBelowEachOther) {
    onEachPage([](QDialog& dialog, int page) {
        if (page == static_cast<int>(Page::playback)) {
            const QRect time = control<QWidget>(dialog, "Slider1_0").geometry();
            const QRect next = control<QWidget>(dialog, "Slider1_2").geometry();
            EXPECT_EQ(time.left(), next.left());
            EXPECT_EQ(time.right(), next.right());
            EXPECT_EQ(control<QLabel>(dialog, "Label6_0").text(),
                      control<QLabel>(dialog, "Label6_2").text());
            const QRect threshold = control<QWidget>(dialog, "Slider1_1").geometry();
            EXPECT_EQ(time.left(), threshold.left());
            EXPECT_EQ(time.right(), threshold.right());
        }
    });
}

TEST_P(PreferencesWords, soDoTheOthers) {
    for (const WindowId id : {WindowId::about, WindowId::ripFolder}) {
        with(id, [&](QDialog& dialog) {
            const std::string where = dialog.objectName().toStdString();
            expectWordsAndNames(dialog, where);
            expectOwnMnemonics(dialog, where);
            EXPECT_LE(dialog.height(), kSmallScreen.height());
        });
    }
}

INSTANTIATE_TEST_SUITE_P(Shipped, PreferencesWords, testing::Values("English", "Slovenian"),
                         [](const auto& language) { return std::string(language.param); });

} // namespace
} // namespace tovik::test
