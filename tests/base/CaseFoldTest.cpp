// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/CaseFold.h"

#include <gtest/gtest.h>

#include <utility>

namespace tovik::base {
namespace {

using Pair = std::pair<const char*, const char*>;

class CaseFold : public testing::TestWithParam<Pair> {};

TEST_P(CaseFold, capitalAndSmallLettersAreOne) {
    EXPECT_EQ(foldedText(GetParam().first), GetParam().second);
    EXPECT_EQ(foldedText(GetParam().second), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(
    Letters, CaseFold,
    testing::Values(Pair{"", ""}, Pair{"Song 12 [LIVE]", "song 12 [live]"},
                    Pair{"@AZ[`az{", "@az[`az{"},
                    Pair{"\u00C0\u00DE\u00D7\u00F7", "\u00E0\u00FE\u00D7\u00F7"},
                    Pair{"\u010C\u0160\u017D", "\u010D\u0161\u017E"},
                    Pair{"\u0178\u0136\u0139", "\u00FF\u0137\u013A"},
                    Pair{"\u039F\u0394\u039F\u03A3", "\u03BF\u03B4\u03BF\u03C3"},
                    Pair{"\u0386\u038F", "\u03AC\u03CE"},
                    Pair{"\u041C\u0423\u0417\u042B\u041A\u0410 \u0401",
                         "\u043C\u0443\u0437\u044B\u043A\u0430 \u0451"},
                    Pair{"\u0531", "\u0561"}, Pair{"\u1E9E", "\u00DF"},
                    Pair{"\u97F3\u697D \U0001F3B5", "\u97F3\u697D \U0001F3B5"},
                    Pair{"\uFF21", "\uFF41"}));

TEST(CaseFoldText, theTwoFormsOfSigmaAreOne) {
    EXPECT_EQ(foldedText("\u03C2"), foldedText("\u03A3"));
}

TEST(CaseFoldText, bytesThatAreNoUtf8AreWhatIsShownOfThem) {
    EXPECT_EQ(foldedText("\x8A\xC8ura"), "\u0161\u00E8ura");
}

TEST(PlainText, lettersLoseTheirMarks) {
    for (const auto& [text, plain] :
         {Pair{"Caf\u00E9 \u00C4\u00D6\u00DC", "cafe aou"}, Pair{"\u010Ce\u0161nja", "cesnja"},
          Pair{"e\u0301\u0308x", "ex"}, Pair{"\xC9t\xE9", "ete"}, Pair{"Stra\u00DFe", "strasse"},
          Pair{"\u041C\u0423\u0417", "\u043C\u0443\u0437"}, Pair{"PLAIN 1", "plain 1"}}) {
        std::string got;
        appendPlain(got, text);
        EXPECT_EQ(got, plain);
    }
}

} // namespace
} // namespace tovik::base
