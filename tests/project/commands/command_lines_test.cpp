#include "project/commands/command_lines.h"

#include "project/options/options.h"

#include <gtest/gtest.h>

#include <map>

namespace tarrow {
namespace {

// The presets of an environment, with some options stored over them.
class TableOptions final : public ProjectOptions {
 public:
  explicit TableOptions(int environment) : environment_(environment) {}

  std::string Option(ProjectOption option) const override {
    auto found = stored.find(option);
    return found != stored.end() ? found->second : std::string(OptionPreset(option, environment_));
  }

  std::map<ProjectOption, std::string> stored;

 private:
  int environment_;
};

struct Expected {
  const char* name;
  const char* compileRelease;
  const char* compileDebug;
  const char* resourcesRelease;
  const char* resourcesDebug;
  const char* linkRelease;
  const char* linkDebug;
  const char* buildRelease;
  const char* buildDebug;
  const char* debug;
};

// What every environment runs without an option stored, for a.c and a.rc and the target app.exe with the
// arguments "1 2".
constexpr Expected kExpected[] = {
    {"Microsoft C", "cl386.exe /nologo /D_X86_=1 /c /G3d /W3 /D_NTWIN /D_WINDOWS /DWINVER=0x030a /Oa /Gs a.c",
     "cl386.exe /nologo /D_X86_=1 /c /G3d /W3 /D_NTWIN /D_WINDOWS /DWINVER=0x030a /Zd /Od /D_DEBUG a.c",
     "rc.exe   a.rc", "rc.exe  /d_DEBUG a.rc",
     "link32.exe -subsystem:windows -entry:WinMainCRTStartup  -out:app.exe  libc.lib ntdll.lib kernel32.lib "
     "user32.lib gdi32.lib",
     "link32.exe -subsystem:windows -entry:WinMainCRTStartup -debug:partial -out:app.exe  libc.lib ntdll.lib "
     "kernel32.lib user32.lib gdi32.lib",
     "nmake.exe -x -  DEBUG=0", "nmake.exe -x -  DEBUG=1", "windbg.exe app.exe 1 2"},
    {"Microsoft C++",
     "cl386.exe /nologo /D_X86_=1 /c /G3d /W3 /D_NTWIN /D_WINDOWS /DWINVER=0x030a /Oa /Gs a.c",
     "cl386.exe /nologo /D_X86_=1 /c /G3d /W3 /D_NTWIN /D_WINDOWS /DWINVER=0x030a /Zd /Od /D_DEBUG a.c",
     "rc.exe   a.rc", "rc.exe  /d_DEBUG a.rc",
     "link32.exe -subsystem:windows -entry:WinMainCRTStartup  -out:app.exe  nafxcw.liblibc.lib ntdll.lib "
     "kernel32.lib user32.lib gdi32.lib",
     "link32.exe -subsystem:windows -entry:WinMainCRTStartup -debug:partial -out:app.exe  "
     "nafxcwd.liblibc.lib "
     "ntdll.lib kernel32.lib user32.lib gdi32.lib",
     "nmake.exe -x -  DEBUG=0", "nmake.exe -x -  DEBUG=1", "windbg.exe app.exe 1 2"},
    {"Zortech C", "ztc.com -c -mM -2 -W3 -a1 -o+time a.c",
     "ztc.com -c -mM -2 -W3 -a1 -s -o+none -g -D_DEBUG a.c", "zrc.com -R  a.rc", "zrc.com -R -D_DEBUG a.rc",
     "blink.exe /NOI /NOD  -out:app.exe -map:NUL.MAP  libw+zwm",
     "blink.exe /NOI /NOD /CO -out:app.exe -map:NUL.MAP  libw+zwm", "make.exe  DEBUG=0", "make.exe  DEBUG=1",
     "zdbw.exe app.exe 1 2"},
    {"Zortech C++", "ztc.com -c -mM -2 -W3 -a1 -o+time a.c",
     "ztc.com -c -mM -2 -W3 -a1 -s -o+none -g -D_DEBUG a.c", "zrc.com -R  a.rc", "zrc.com -R -D_DEBUG a.rc",
     "blink.exe /NOI /NOD  -out:app.exe -map:NUL.MAP  libw+zwm",
     "blink.exe /NOI /NOD /CO -out:app.exe -map:NUL.MAP  libw+zwm", "make.exe  DEBUG=0", "make.exe  DEBUG=1",
     "zdbw.exe app.exe 1 2"},
    {"Other", "   a.c", "   a.c", "   a.rc", "   a.rc", "   -out:app.exe  ", "   -out:app.exe  ", "  ", "  ",
     " app.exe 1 2"},
};

TEST(CommandLines, AreThoseOfEveryEnvironment) {
  for (int environment = 0; environment < kEnvironmentCount; ++environment) {
    const Expected& expected = kExpected[environment];
    SCOPED_TRACE(expected.name);
    TableOptions options(environment);
    CommandSource release{options, false, "app.exe", "1 2"}, debug{options, true, "app.exe", "1 2"};
    EXPECT_EQ(expected.compileRelease, MakeCompileCommand(release, "a.c").Line());
    EXPECT_EQ(expected.compileDebug, MakeCompileCommand(debug, "a.c").Line());
    EXPECT_EQ(expected.resourcesRelease, MakeCompileCommand(release, "a.rc").Line());
    EXPECT_EQ(expected.resourcesDebug, MakeCompileCommand(debug, "a.rc").Line());
    EXPECT_EQ(expected.linkRelease, LinkCommand(release));
    EXPECT_EQ(expected.linkDebug, LinkCommand(debug));
    EXPECT_EQ(expected.buildRelease, BuildCommand(release));
    EXPECT_EQ(expected.buildDebug, BuildCommand(debug));
    EXPECT_EQ(std::string(expected.buildDebug) + " clean all", BuildTargetCommand(debug, "clean all"));
    EXPECT_EQ(expected.debug, DebugCommand(release));
    EXPECT_EQ("app.exe 1 2", TestCommand(debug));
  }
}

TEST(CommandLines, LeaveOutWhatTheLinkDoesNotName) {
  TableOptions options(4);
  EXPECT_EQ("    ", LinkCommand({options}));
  options.stored = {{kOptionLinker, "ld"},          {kOptionLinkObjects, "a.o b.o"},
                    {kOptionLinkListFile, "a.map"}, {kOptionLinkLibsRelease, "r.lib "},
                    {kOptionLinkLibs, "c.lib"},     {kOptionLinkDefsFile, "a.def"},
                    {kOptionInclude, "c:\\include"}};
  EXPECT_EQ("ld   -map:a.map a.o b.o r.lib c.lib", LinkCommand({options}));
}

TEST(CommandLines, AStoredEmptyOptionIsEmpty) {
  TableOptions options(0);
  options.stored[kOptionCompileArgs] = "";
  EXPECT_EQ("cl386.exe /nologo /D_X86_=1  /Oa /Gs a.c", MakeCompileCommand({options}, "a.c").Line());
}

TEST(CommandLines, TheExtensionIsThatOfTheName) {
  EXPECT_EQ(".c", CompileExtension("c:\\x.y\\a.b.c"));
  EXPECT_EQ("", CompileExtension("c:\\x.y\\makefile"));
  EXPECT_EQ("", CompileExtension("makefile"));
  EXPECT_EQ("", CompileExtension("a."));
  EXPECT_EQ(".rc", CompileExtension(".rc"));
  TableOptions options(0);
  EXPECT_EQ("cl386.exe /nologo /D_X86_=1", MakeCompileCommand({options}, "a.RC").program);
}

// Program, arguments, path and two blanks: 1,024 characters are given as they are, one more goes into a file.
TEST(CommandLines, TooLongACompileTakesAResponseFile) {
  TableOptions options(4);
  options.stored = {{kOptionCompiler, "cc"}, {kOptionCompileArgs, ""}};
  for (std::size_t length : {1024u, 1025u}) {
    options.stored[kOptionCompileArgs] = std::string(length - 2 - 1 - 1 - 3 - 1, 'x');
    CompileCommand command = MakeCompileCommand({options}, "a.c");
    EXPECT_EQ(length == 1025, command.NeedsResponseFile());
    std::string whole = "cc " + options.stored[kOptionCompileArgs] + "  a.c";
    EXPECT_EQ(length, whole.size());
    EXPECT_EQ(length == 1025 ? "cc @c:\\t\\r.tmp" : whole, command.Line("c:\\t\\r.tmp"));
    EXPECT_EQ(options.stored[kOptionCompileArgs] + "  a.c\r\n", command.ResponseText());
  }
}

TEST(CommandLines, CountCharactersAndNotBytes) {
  TableOptions options(4);
  for (int i = 0; i < 600; ++i) options.stored[kOptionCompileArgs] += "\303\244";
  EXPECT_FALSE(MakeCompileCommand({options}, "a.c").NeedsResponseFile());
}

TEST(CommandLines, QuoteWhatHoldsABlank) {
  TableOptions options(4);
  options.stored[kOptionCompiler] = "cc";
  EXPECT_EQ("cc   \"c:\\my files\\a.c\"", MakeCompileCommand({options}, "c:\\my files\\a.c").Line());
  EXPECT_EQ("c:\\t\\nt\\projexec.exe c:\\o.tmp cc  x", WrapperCommand("c:\\t\\", "c:\\o.tmp", "cc  x"));
  EXPECT_EQ("\"c:\\my t\\nt\\projexec.exe\" \"c:\\my o.tmp\" \"a b\"",
            WrapperCommand("c:\\my t\\", "c:\\my o.tmp", "\"a b\""));
}

}  // namespace
}  // namespace tarrow
