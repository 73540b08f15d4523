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
        {"%%app%%%%app%% %%sysapp%% %%version%%, %%app%%", "TavelinTavelin tavlib6 6.5.0.64, Tavelin"},
        {"%%app %%unknown%% 100%", "%%app %%unknown%% 100%"},
        {"", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(tvl::expandProductMacros(std::string(c.text), std::string(TVL_VERSION_TEXT)), c.expanded) << c.text;
}

}  // namespace
