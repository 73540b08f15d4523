// The desktop exports where there is no windowing system, and the macros of the product texts
// that the about box and `tvl --about` share.
#include <gtest/gtest.h>

#include <string>

#include "desktop/product_texts.h"
#include "support/facade_fixture.h"

namespace {

class Desktop : public tvltest::FacadeTest {};

TEST_F(Desktop, BothCallsReturnOneAndClearTheLastError) {
    void* const parents[] = {nullptr, reinterpret_cast<void*>(0x1234)};
    for (void* parent : parents) {
        lib.SETLASTERROR(2);
        EXPECT_EQ(lib.SHOWABOUT(parent), 1.0) << parent;
        EXPECT_EQ(lib.GETLASTERROR(), 0) << "the frame clears the code on entry";
        lib.SETLASTERROR(3);
        EXPECT_EQ(lib.SHOWTVLHELP(parent), 1.0) << parent;
        EXPECT_EQ(lib.GETLASTERROR(), 0);
    }
}

TEST(ProductTexts, EveryOccurrenceOfEachMacroIsReplaced) {
    const struct {
        const char* text;
        const char* expanded;
    } cases[] = {
        {TVL_TEXT_TITLE, "Tavelin 6.5"},
        {TVL_TEXT_PRODUCT, "Tavelin (tm)"},
        {TVL_TEXT_VERSION, "Version: 6.5.0.64"},
        {TVL_TEXT_PURPOSE,
         "Tavelin is a program for calculating properties of some substances\r\n"
         "(including water/steam, some gases and its mixtures)."},
        {"%%app%%%%app%% %%sysapp%% %%version%%, %%app%%", "TavelinTavelin tavlib6 6.5.0.64, Tavelin"},
        {"%%app %%unknown%% 100%", "%%app %%unknown%% 100%"},
        {"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(tvl::expandProductMacros(std::string(c.text), std::string(TVL_VERSION_TEXT)), c.expanded) << c.text;
}

TEST(ProductTexts, HelpMessageNamesTheFileInQuotes) {
    const std::string text = tvl::expandProductMacros(std::string(TVL_TEXT_HELP_MISSING), std::string("6.5.0.64"));
    EXPECT_EQ(text.substr(0, text.find("\r\n", text.find("\r\n") + 2)),
              "Tavelin can't locate its help file (named \"tavlib6.chm\").\r\nTry to reinstall the Tavelin.");
    EXPECT_NE(text.find("\r\n", text.find("Tavelin.")), std::string::npos) << "a third line, the support contact";
}

TEST(ProductTexts, WideStringsAreExpandedAlike) {
    const std::u16string text = u"Version: %%version%% of %%sysapp%%";
    EXPECT_EQ(tvl::expandProductMacros(text, std::u16string(u"6.5.0.64")), u"Version: 6.5.0.64 of tavlib6");
}

TEST(ProductTexts, CreditsBeginWithTheAuthorsLine) {
    const std::string credits = tvl::expandProductMacros(std::string(TVL_TEXT_CREDITS), std::string());
    EXPECT_EQ(credits.rfind("Tavelin authors:\r\n", 0), 0u) << credits;
    EXPECT_NE(credits.find("Copyright"), std::string::npos) << credits;
}

}  // namespace
