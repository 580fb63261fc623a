#include "base/Text.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

using Pieces = std::vector<std::string>;

TEST(Text, CaseIsThatOfAsciiOnly)
{
    EXPECT_EQ(ToLower("AZaz09\xC3\x84[@"), "azaz09\xC3\x84[@");
    EXPECT_EQ(ToUpper("AZaz09\xC3\xA4{`"), "AZAZ09\xC3\xA4{`");
    EXPECT_TRUE(EqualsIgnoringCase("Tarvex.XML", "tarvex.xml"));
    EXPECT_FALSE(EqualsIgnoringCase("Tarvex", "Tarvex "));
    EXPECT_TRUE(ContainsIgnoringCase("-wOssary", "OSS"));
    EXPECT_FALSE(ContainsIgnoringCase("Oss", "Ossary"));
}

TEST(Text, OnlyBlanksAreTrimmed)
{
    EXPECT_EQ(TrimBlanks("  a b "), "a b");
    EXPECT_EQ(TrimBlanks("   "), "");
    EXPECT_EQ(TrimBlanks("\t a\n"), "\t a\n");
}

TEST(Text, SplitKeepsEmptyPieces)
{
    EXPECT_EQ(Split("a,,b,", ","), (Pieces{"a", "", "b", ""}));
    EXPECT_EQ(Split("", ","), Pieces{""});
    EXPECT_EQ(Split("a -- b", " -- "), (Pieces{"a", "b"}));
}

TEST(Text, FileNameFollowsTheLastSeparator)
{
    EXPECT_EQ(FileNameOf("/a/b/Tarvex.xml"), "Tarvex.xml");
    EXPECT_EQ(FileNameOf("Tarvex.xml"), "Tarvex.xml");
    EXPECT_EQ(FileNameOf("/a/"), "");
    EXPECT_EQ(ReplaceAll("a\\b\\c", '\\', '/'), "a/b/c");
}

}
}
