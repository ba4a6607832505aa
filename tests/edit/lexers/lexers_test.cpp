// Each lexer by examples: a text, and beneath it a letter for the style of each byte.
#include "edit/lexers/lexers.h"
#include "tests/edit/lexers/styled_text.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

struct Example {
  const char* file;
  const char* text;
  const char* styles;
};

// What a name chooses; the program's own results by names that no file has.
const Lexer& LexerOf(const Example& example) {
  std::string_view file = example.file;
  if (file == "GREP") return SearchResultLexer();
  if (file == "COMPARE") return ComparisonLexer();
  if (file == "LOG") return BuildLogLexer();
  return *LexerFor(file);
}

class Lexers : public testing::TestWithParam<Example> {};

TEST_P(Lexers, GiveEachByteItsStyle) {
  const Example& example = GetParam();
  EXPECT_EQ(example.styles, StylesOf(LexerOf(example), example.text)) << example.text;
}

constexpr Example kC[] = {
    {"a.c", "int a; // b\nx", "kkk....cccc\n."},
    {"a.c", "a /* b\nc */ d", "..cccc\ncccc.."},
    {"a.c", "a / b /* c **/ 1", "......cccccccc.n"},
    {"a.c", "// a \\\nb\nc", "cccccc\nc\n."},
    {"a.c", "\"a\\\"b\" c", "ssssss.."},
    {"a.c", "\"a\\\nb\" 1", "sss\nss.n"},
    {"a.c", "\"open\nint", "sssss\nkkk"},
    {"a.c", "\"a\\\\\" 1", "sssss.n"},
    {"a.c", "'a' L'\\'' u8\"x\" w\"x\"", "sss.sssss.sssss..sss"},
    {"a.cpp", "operator\"\"s", "kkkkkkkkss."},
    {"a.cpp", "R\"(a\")\" 1", "sssssss.n"},
    {"a.cpp", "u8R\"x(a)\"\n)y\"\n)x\" 1", "sssssssss\nsss\nsss.n"},
    {"a.cpp", "R\"no\\t(\" 1", "ssssssss.n"},
    {"a.cpp", "1'000 0x1F'FFull .5e+3f 0x1p-3 1e-3 0xE+1 a1", "nnnnn.nnnnnnnnnn.nnnnnn.nnnnnn.nnnn.nnn.n..."},
    {"a.c", "#include <a.h> // b", "dddddddd.sssss.cccc"},
    {"a.c", " # define A \"b\" 1", ".dddddddd...sss.n"},
    {"a.c", "/* a */ #if 1", "ccccccc.ddd.n"},
    {"a.c", "a #b", "...."},
    {"a.c", "#define A \\\n#b 'x'", "ddddddd....\n...sss"},
    {"a.c", "/* a\n*/ #if", "cccc\ncc.ddd"},
    {"a.c", "x /* a\n*/ #if", "..cccc\ncc..kk"},
    {"a.c", "#error don't /* a\n*/", "dddddd.......cccc\ncc"},
    {"a.c", "_MSC_VER __cdecl main While", "PPPPPPPP.kkkkkkk.PPPP......"},
    {"a.c", "\xEF\xBB\xBF#if", "...ddd"},
    {"a.c", "caf\xC3\xA9 int\xC3\xA9 $int", "................"},
    {"a.cpp", "constexpr auto nullptr", "kkkkkkkkk.kkkk.kkkkkkk"},
    {"a.rc", "IDD DIALOG 1, 2 // a", "....kkkkkk.n..n.cccc"},
    {"a.rc", "LTEXT \"a \"\"b\"\"\", -1", "kkkkk.sssssssss...n"},
    {"a.dlg", "don't begin", "......kkkkk"},
};

constexpr Example kMakefiles[] = {
    {"makefile", "# a \\\nb\nc", "ccccc\nc\n."},
    {"a.mak", "CC = cl $(X) # a", "KKK.....VVVV.ccc"},
    {"a.mk", "CC := $$a ${B:c=d}", "KKK...VV..VVVVVVVV"},
    {"Makefile", "all: a.obj $@ $(B:.c=.obj)", "SSS........VV.VVVVVVVVVVVV"},
    {"a.mak", "\tcl # $(X) \"a b\"", "......VVVV.sssss"},
    {"a.mak", "!IF \"$(A)\" == \"\"\n!ENDIF", "ddd.ssssss....ss\ndddddd"},
    {"a.mk", "ifdef A\ninclude b", "ddddd..\nddddddd.."},
    {"a.mak", "A = a \\\n b $(C", "KK.....\n...VVV"},
    {"a.mak", "c:\\a.obj: b", "SSSSSSSS..."},
    {"a.mak", "A = \\# b", "KK......"},
};

constexpr Example kLines[] = {
    {"a.def", "LIBRARY \"a\" ; b", "kkkkkkk.sss.ccc"},
    {"a.def", "  Open @12 noname", ".......nnn.kkkkkk"},
    {"a.ini", "; a\n[b] c\nd = 1\ne=\"f\" g\nh=1 2\nalone", "ccc\nSSS..\nKK..n\nK.sss..\nK....\n....."},
    {"tarrow.ini", "a=-12", "K.nnn"},
};

constexpr Example kBatch[] = {
    {"a.bat", "@rem a\n:: b\n:label\nremark", "cccccc\ncccc\nSSSSSS\n......"},
    {"a.cmd", "@echo off if %PATH% \"x", ".kkkk........VVVVVV..."},
    {"a.bat", "if exist \"a b\" goto c", "kk.kkkkk.sssss.kkkk.."},
    {"a.bat", "for %%i in (*.c) do call x %1 %~dp0 %*", "kkk.VVV.kk.......kk.kkkk...VV.VVVVV.VV"},
    {"a.bat", "echo a & set x=!y! 50% of 60%", "kkkk.....kkk...VVV..........."},
    {"a.bat", "echo a ^\nif b\nif", "kkkk....\n....\nkk"},
};

constexpr Example kMarkdown[] = {
    {"a.md", "# a\n#b", "SSS\n.."},
    {"a.md", "```c\n# a\n``\n````\nb", "CCCC\nCCC\nCC\nCCCC\n."},
    {"a.md", "~~~\n```\n~~~\n`a` ``b`c`` `d", "CCC\nCCC\nCCC\nCCC.CCCCCCC..."},
    {"a.md", "*a* **b** _c_ d_e_f *g", "eee.BBBBB.eee........."},
    {"a.md", "- [a](b) <http://c>", "k....LLL.LLLLLLLLLL"},
    {"a.md", "> 1. a\n---\n===", "d.kk..\nddd\nSSS"},
    {"a.md", "a <!-- b\nc --> d", "..cccccc\nccccc.."},
    {"a.md", "\\*a* b", "......"},
};

constexpr Example kResults[] = {
    {"GREP", "c:\\x (86)\\a.c(12): int", "ppppppppppppp.nn......"},
    {"GREP", "a.c: 3\nno place", "ppp..n\n........"},
    {"GREP", "a.dll(0x1f): b", "ppppp.nnnn...."},
    {"COMPARE", "1,2c3\n< a\n---\n> b\nc", "hhhhh\nooo\nhhh\nNNN\n."},
    {"LOG", "foo.c(12) : error C2065", "ppppppppp...EEEEE......"},
    {"LOG", "cl\nsrc\\a.c (4,7): Warning x", "..\nppppppppppppp..WWWWWWW.."},
    {"LOG", "a.c:12:5: fatal error: b", "pppppp....EEEEE.EEEEE..."},
    {"LOG", "terror 0 errors", ".........EEEEEE"},
};

std::string NameOf(const testing::TestParamInfo<Example>& info) {
  return std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(C, Lexers, testing::ValuesIn(kC), NameOf);
INSTANTIATE_TEST_SUITE_P(Makefiles, Lexers, testing::ValuesIn(kMakefiles), NameOf);
INSTANTIATE_TEST_SUITE_P(Lines, Lexers, testing::ValuesIn(kLines), NameOf);
INSTANTIATE_TEST_SUITE_P(Batch, Lexers, testing::ValuesIn(kBatch), NameOf);
INSTANTIATE_TEST_SUITE_P(Markdown, Lexers, testing::ValuesIn(kMarkdown), NameOf);
INSTANTIATE_TEST_SUITE_P(Results, Lexers, testing::ValuesIn(kResults), NameOf);

TEST(LexerFor, ChoosesByTheNameOfTheFile) {
  EXPECT_EQ(&CSourceLexer(), LexerFor("c:\\a.b\\X.CPP"));
  EXPECT_EQ(&MakefileSourceLexer(), LexerFor("c:\\src\\MAKEFILE"));
  EXPECT_EQ(nullptr, LexerFor("c:\\makefile\\a.txt"));
  EXPECT_EQ(nullptr, LexerFor("File1"));
  EXPECT_EQ(nullptr, LexerFor("c:\\a.c\\b"));
  EXPECT_EQ(nullptr, LexerFor(""));
}

TEST(Lexer, LooksNoFurtherThanItMust) {
  std::string line = "/*" + std::string(kLexedOfLine - 3, 'a') + "\xC3\xA9*/ 1";
  StyleRuns runs;
  LexState state = CSourceLexer().Lex(line, kTextStart, &runs);
  ASSERT_EQ(2u, runs.Size());
  EXPECT_EQ((StyleRun{static_cast<std::int32_t>(kLexedOfLine) - 1, Style::kComment}), *runs.begin());
  EXPECT_EQ(static_cast<std::int32_t>(line.size()), runs.End());
  EXPECT_EQ(state, CSourceLexer().Lex(line, kTextStart, nullptr));
  EXPECT_EQ("ccc", StylesOf(CSourceLexer(), "a*/", state));
}

}  // namespace
}  // namespace tarrow
