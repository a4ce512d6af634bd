// SPDX-License-Identifier: GPL-3.0-or-later
// What is known of a disc, on the screen.
#include "dialogs/DiscInfoDialog.h"

#include "app/DialogRig.h"
#include "support/sound/ScriptedServer.h"

#include <QCompleter>

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using window::WindowId;

class DiscInfoDialog : public DialogRig {
protected:
    DiscInfoDialog() {
        begin();
        sound_.drives.resize(1);
        sound_.drives.front().toc = FakeDiscs::discOf({200, 100});
        for (const char* const row : {"1", "2"}) {
            player().lists().lstTracks.AddItem("", "D:\\Track0" + std::string(row) + ".cda", row,
                                               "", 1);
        }
        host_.folder.write("CDDB/server.ini", "[server]\nhost=\nmail=\n");
    }

    /// Opens it as the menu does, and lets it load what is kept before the act.
    void open(const std::function<void(QDialog&)>& act) {
        acted_ = 0;
        next([&act](QDialog& dialog) {
            QCoreApplication::sendPostedEvents();
            act(dialog);
        });
        player().commands().run(commands::CommandId::ripAll);
        EXPECT_GE(acted_, 1) << "the dialog did not open";
    }

    [[nodiscard]] cd::DiscForm& form() { return player().discInfo().form; }

    static QLineEdit& edit(QDialog& dialog, const char* name) {
        return control<QLineEdit>(dialog, name);
    }

    static QListWidget& list(QDialog& dialog) { return control<QListWidget>(dialog, "List1"); }

    static QPushButton& button(QDialog& dialog, const char* name) {
        return control<QPushButton>(dialog, name);
    }

    static std::vector<std::string> rows(QDialog& dialog) {
        std::vector<std::string> texts;
        for (int row = 0; row < list(dialog).count(); ++row) {
            texts.push_back(list(dialog).item(row)->text().toStdString());
        }
        return texts;
    }

    static std::string status(QDialog& dialog) {
        return control<QLabel>(dialog, "Status").text().toStdString();
    }

    /// A server that answers a query so.
    void serve(const std::string& query) {
        server_.emplace([query](Peer& peer) {
            const bool reads = peer.path().find("cddb+read") != std::string::npos;
            peer.send("HTTP/1.0 200 OK\r\n\r\n" +
                      (reads ? "210 x\r\nDTITLE=The A / The B\r\nDYEAR=1999\r\nDGENRE=Rock\r\n"
                               "TTITLE0=Čas\r\nTTITLE1=Two\r\n.\r\n"
                             : query));
        });
        host_.folder.write("CDDB/server.ini",
                           "[server]\nhost=127.0.0.1:" + std::to_string(server_->port()) + "\n");
    }

    std::optional<ScriptedServer> server_;
};

TEST_F(DiscInfoDialog, speaksTheLanguages) {
    open([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Disc information");
        EXPECT_EQ(control<QLabel>(dialog, "Frame1").text(), "&Album");
        EXPECT_EQ(control<QLabel>(dialog, "Frame2_0").text(), "Art&ist");
        EXPECT_EQ(control<QLabel>(dialog, "Frame2_1").text(), "&Track");
        EXPECT_EQ(button(dialog, "Command1_2").text(), "&Search for CDDB info");
        EXPECT_EQ(list(dialog).accessibleName(), "Tracks");
    });
    set("CLNG", "Slovenian");
    player().changeLanguage();
    open([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Podatki o disku");
        EXPECT_EQ(control<QLabel>(dialog, "Frame3").text(), "&Leto");
        EXPECT_EQ(control<QLabel>(dialog, "Frame4").text(), "Z&vrst");
        EXPECT_EQ(list(dialog).accessibleName(), "Skladbe");
        button(dialog, "Command1_2").click();
        EXPECT_EQ(status(dialog), "V datoteki CDDB/server.ini ni nastavljen noben strežnik");
    });
}

// Every field has a label that names it to screen readers and leads there by a key of its own.
TEST_F(DiscInfoDialog, everyFieldIsNamedAndReachedByAKey) {
    for (const char* const language : {"English", "Slovenian"}) {
        set("CLNG", language);
        player().changeLanguage();
        open([&](QDialog& dialog) {
            std::set<QString> keys;
            const auto addKey = [&](const QString& text) {
                const qsizetype sign = text.indexOf('&');
                EXPECT_GE(sign, 0) << text.toStdString();
                EXPECT_TRUE(keys.insert(text.mid(sign + 1, 1).toUpper()).second)
                    << language << ": " << text.toStdString();
            };
            std::set<QWidget*> named;
            for (const QLabel* const label : dialog.findChildren<QLabel*>()) {
                if (label->buddy() != nullptr) {
                    addKey(label->text());
                    named.insert(label->buddy());
                }
            }
            for (const QPushButton* const each : dialog.findChildren<QPushButton*>()) {
                addKey(each->text());
            }
            EXPECT_EQ(keys.size(), 9);
            for (QLineEdit* const each : dialog.findChildren<QLineEdit*>()) {
                EXPECT_TRUE(named.contains(each)) << each->objectName().toStdString();
            }
        });
    }
}

TEST_F(DiscInfoDialog, beginsInTheFirstFieldWithTheTracksByNumber) {
    open([](QDialog& dialog) {
        EXPECT_TRUE(dialog.isModal());
        EXPECT_EQ(dialog.focusWidget()->objectName(), "Text1_0");
        EXPECT_THAT(rows(dialog), ElementsAre("Track 1", "Track 2"));
        EXPECT_EQ(status(dialog), "");
    });
}

TEST_F(DiscInfoDialog, showsWhatIsKeptOfTheDisc) {
    host_.folder.write("CDDB/06012c02", "DTITLE=Album\r\nDARTIST=Umetnik č\r\nDYEAR=1999\r\n"
                                        "DGENRE=Rock\r\nTTITLE0=One\r\nTTITLE1=Two\r\n");
    open([](QDialog& dialog) {
        EXPECT_EQ(edit(dialog, "Text1_0").text(), "Album");
        EXPECT_EQ(edit(dialog, "Text1_1").text(), "1999");
        EXPECT_EQ(edit(dialog, "Text2_0").text(), QStringLiteral("Umetnik č"));
        EXPECT_EQ(edit(dialog, "Text2_2").text(), "Rock");
        EXPECT_THAT(rows(dialog), ElementsAre("One", "Two"));
    });
}

TEST_F(DiscInfoDialog, theFormHasWhatIsTyped) {
    open([this](QDialog& dialog) {
        QTest::keyClicks(&edit(dialog, "Text1_0"), "Album");
        QTest::keyClicks(&edit(dialog, "Text1_1"), "1999");
        QTest::keyClicks(&edit(dialog, "Text2_0"), "Artist");
        QTest::keyClicks(&edit(dialog, "Text2_2"), "Rock");
        EXPECT_THAT(form().Text1, ElementsAre("Album", "1999"));
        EXPECT_THAT(form().Text2, ElementsAre("Artist", "", "Rock"));
        button(dialog, "Command1_4").click();
        EXPECT_THAT(form().Text1, ElementsAre("", ""));
        EXPECT_EQ(edit(dialog, "Text1_0").text(), "");
        EXPECT_EQ(edit(dialog, "Text2_2").text(), "");
        EXPECT_TRUE(dialog.isVisible());
    });
}

TEST_F(DiscInfoDialog, namesOfTracksAreTypedOneAfterTheOther) {
    open([this](QDialog& dialog) {
        QLineEdit& track = edit(dialog, "Text2_1");
        dialog.activateWindow();
        track.setFocus();
        QCoreApplication::processEvents();
        EXPECT_EQ(list(dialog).currentRow(), 0) << "the first one is taken";
        EXPECT_EQ(track.text(), "Track 1");
        track.selectAll();
        QTest::keyClicks(&track, "First");
        QTest::keyClick(&track, Qt::Key_Return);
        EXPECT_EQ(track.text(), "Track 2");
        EXPECT_TRUE(dialog.isVisible()) << "Enter begins no rip";
        QTest::keyClicks(&track, "Second");
        EXPECT_THAT(form().List1, ElementsAre("First", "Second"));
        EXPECT_THAT(rows(dialog), ElementsAre("First", "Second"));
        QTest::keyClick(&track, Qt::Key_Down);
        EXPECT_EQ(track.text(), "Second");
        QTest::keyClick(&track, Qt::Key_Up);
        EXPECT_EQ(track.text(), "First");
    });
}

TEST_F(DiscInfoDialog, genresAreOffered) {
    open([this](QDialog& dialog) {
        QCompleter& genres = *edit(dialog, "Text2_2").completer();
        genres.setCompletionPrefix("hard ro");
        EXPECT_EQ(genres.currentCompletion(), "Hard Rock");
        Q_EMIT genres.activated(QStringLiteral("Hard Rock"));
        EXPECT_EQ(form().Text2[2], "Hard Rock");
    });
}

TEST_F(DiscInfoDialog, escapeAndCloseForget) {
    int rips = 0;
    player().discInfo().dialog.hooks.Rip_All = [&rips] { ++rips; };
    for (const bool escape : {true, false}) {
        open([&](QDialog& dialog) {
            QTest::keyClicks(&edit(dialog, "Text1_0"), "Album");
            if (escape) {
                QTest::keyClick(&dialog, Qt::Key_Escape);
            } else {
                button(dialog, "Command1_1").click();
            }
            EXPECT_FALSE(dialog.isVisible());
        });
        EXPECT_EQ(form().Text1[0], "");
    }
    EXPECT_EQ(rips, 0);
}

TEST_F(DiscInfoDialog, ripClosesItAndRipsThen) {
    std::string ripped;
    player().discInfo().dialog.hooks.Rip_All = [&] {
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        ripped = form().Text1[0];
    };
    open([](QDialog& dialog) {
        QTest::keyClicks(&edit(dialog, "Text1_0"), "Album");
        button(dialog, "Command1_0").click();
    });
    EXPECT_EQ(ripped, "Album");
}

TEST_F(DiscInfoDialog, theDialogComesBackFromARip) {
    int opened = 0;
    player().discInfo().dialog.hooks.Rip_All = [&] {
        if (++opened == 1) {
            next([&opened](QDialog& dialog) {
                ++opened;
                QCoreApplication::sendPostedEvents();
                EXPECT_EQ(edit(dialog, "Text1_0").text(), "Album");
            });
            player().discInfo().dialog.Show();
        }
    };
    open([](QDialog& dialog) {
        QTest::keyClicks(&edit(dialog, "Text1_0"), "Album");
        button(dialog, "Command1_0").click();
    });
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(form().Text1[0], "");
}

TEST_F(DiscInfoDialog, aSearchFillsIt) {
    serve("200 rock 06012c02 A / B\r\n");
    open([](QDialog& dialog) {
        button(dialog, "Command1_2").click();
        EXPECT_EQ(edit(dialog, "Text1_0").text(), "The B");
        EXPECT_EQ(edit(dialog, "Text2_0").text(), "The A");
        EXPECT_THAT(rows(dialog), ElementsAre("Čas", "Two"));
        EXPECT_EQ(status(dialog), "Found, and kept for this disc");
        EXPECT_TRUE(button(dialog, "Command1_2").isEnabled());
    });
    EXPECT_TRUE(std::filesystem::exists(host_.folder / "CDDB/06012c02"));
}

TEST_F(DiscInfoDialog, everyEndOfASearchIsTold) {
    open([this](QDialog& dialog) {
        serve("202 No match\r\n");
        button(dialog, "Command1_2").click();
        EXPECT_EQ(status(dialog), "The server knows no such disc");
        serve("403 Corrupt\r\n");
        button(dialog, "Command1_2").click();
        EXPECT_EQ(status(dialog), "The server gives no answer that is of use");
        host_.folder.write("CDDB/server.ini",
                           "[server]\nhost=127.0.0.1:" + std::to_string(closedPort()) + "\n");
        button(dialog, "Command1_2").click();
        EXPECT_EQ(status(dialog), "The server cannot be reached");
        sound_.drives.front().ready = false;
        button(dialog, "Command1_2").click();
        EXPECT_EQ(status(dialog), "There is no disc in the drive");
    });
}

TEST_F(DiscInfoDialog, ofSeveralDiscsOneIsChosen) {
    serve("211 Found\r\nrock 1 A / B\r\nmisc 2 C / D\r\n.\r\n");
    const auto inList = [this](const std::function<void(QDialog&, QListWidget&)>& act) {
        open([&](QDialog& dialog) {
            next([&](QDialog& match) {
                EXPECT_EQ(match.objectName(), "frmDiscMatch");
                act(match, list(match));
            });
            button(dialog, "Command1_2").click();
        });
    };
    inList([](QDialog& match, QListWidget& discs) {
        EXPECT_EQ(match.windowTitle(), "Which disc is it?");
        EXPECT_EQ(match.focusWidget(), &discs);
        EXPECT_THAT(rows(match), ElementsAre("A / B (rock)", "C / D (misc)"));
        EXPECT_EQ(discs.currentRow(), 0);
        QTest::keyClick(&discs, Qt::Key_Down);
        QTest::keyClick(&match, Qt::Key_Return);
        EXPECT_FALSE(match.isVisible());
    });
    EXPECT_FALSE(std::filesystem::exists(host_.folder / "CDDB/06012c02")) << "it is not kept";
    inList([](QDialog& match, QListWidget&) { QTest::keyClick(&match, Qt::Key_Escape); });
    EXPECT_EQ(player().discInfo().freedb.lastEnd(), discs::QueryEnd::notPicked);
    inList([](QDialog& match, QListWidget&) { button(match, "Command1_0").click(); });
    EXPECT_EQ(player().discInfo().freedb.lastEnd(), discs::QueryEnd::picked);
}

// While the server says nothing the dialog lives, and closing it ends the search.
TEST_F(DiscInfoDialog, aSearchHoldsNothingUp) {
    server_.emplace([](Peer& peer) { peer.hold(); });
    host_.folder.write("CDDB/server.ini",
                       "[server]\nhost=127.0.0.1:" + std::to_string(server_->port()) + "\n");
    bool typed = false;
    open([&](QDialog& dialog) {
        // Both are due at the same time: the second one runs while the first one waits.
        const auto press = host_.clock.makeTimer([&] { button(dialog, "Command1_2").click(); });
        const auto timer = host_.clock.makeTimer([&] {
            if (!dialog.isVisible()) {
                return;
            }
            EXPECT_EQ(status(dialog), "Searching …");
            EXPECT_FALSE(button(dialog, "Command1_2").isEnabled());
            QTest::keyClicks(&edit(dialog, "Text1_0"), "x");
            typed = form().Text1[0] == "x";
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        for (host::Timer* const each : {press.get(), timer.get()}) {
            each->setInterval(1);
            each->setEnabled(true);
        }
        advance(1);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_TRUE(typed);
    EXPECT_EQ(player().discInfo().freedb.lastEnd(), discs::QueryEnd::calledOff);
    EXPECT_TRUE(host_.errors.empty());
}

TEST_F(DiscInfoDialog, itStaysInFrontAsThePlayerDoes) {
    set("ASOT", "1");
    open([](QDialog& dialog) {
        EXPECT_TRUE(dialog.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    });
}

} // namespace
} // namespace tovik::test
