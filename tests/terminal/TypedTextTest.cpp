#include "TypedText.h"

#include <gtest/gtest.h>

namespace quorvel {

using namespace std::string_literals;

TEST(TypedText, NothingInItCanEndAPasteOrPressAKey) {
    const struct {
        std::string text;
        std::string plain;
    } cases[]{
        {"'; rm -rf ~ # $(reboot) `x` \\ \"", "'; rm -rf ~ # $(reboot) `x` \\ \""},
        {"a\033[201~\rb", "a[201~\nb"},
        {"a\0b\x03\x04\x1a\x7f"
         "c"s,
         "abc"},
        {"a\xc2\x9b"
         "201~b \xc2\xa0 \xc3\xbc \xf0\x9f\x98\x80",
         "a201~b \xc2\xa0 \xc3\xbc \xf0\x9f\x98\x80"},
        {"a\x9b\xff\xc3(b\xf0\x9f", "a(b"},
        {"one\r\ntwo\rthree\tx \t\r\n\n", "one\ntwo\nthree\tx"},
        {"", ""},
    };
    for (const auto& [text, plain] : cases)
        EXPECT_EQ(plainText(text), plain);
    EXPECT_EQ(pastedForm("a\nb"), "\033[200~a\rb\033[201~");
}

TEST(TypedText, LinesBecomeOneOnlyWhereThatKeepsTheirMeaning) {
    const struct {
        const char* plain;
        const char* line;
        bool isCut;
    } cases[]{
        {"ls -l", "ls -l", false},
        {"a\tb", "a b", false},
        {"make \\\n  all", "make   all", false},
        {"ls |\nwc &&\necho x", "ls | wc && echo x", false},
        {"ls | \nwc", "ls |  wc", false},
        {"cd x\nmake", "cd x", true},
        {"ls |\nwc\nrm x", "ls |", true},
        {"echo \\\\\nmake", "echo \\\\", true},
        {"echo \\|\nmake", "echo \\|", true},
        {"echo 'a |\nb'", "echo 'a |", true},
        {"echo a # |\nmake", "echo a # |", true},
        {"cat <<X |\na\nX", "cat <<X |", true},
        {"sleep 1 &\nls", "sleep 1 &", true},
    };
    for (const auto& [plain, line, isCut] : cases) {
        const TypedForm form = typedForm(plain);
        EXPECT_EQ(form.line, line);
        EXPECT_EQ(form.isCut, isCut) << plain;
    }
}

TEST(TypedText, IsShownWithoutDoingAnything) {
    EXPECT_EQ(shownForm("a\033[2J\x7f\r\nb\t\xc2\x9b\xc3\xbc"), "a^[[2J^?^M\nb\t?\xc3\xbc");
}

} // namespace quorvel
