#include "base/path_text.h"
#include "edit/lexers/lexers.h"

namespace tarrow {
namespace {

// A name, or what one ends in from its last point on.
struct Choice {
  std::string_view name;
  const Lexer& (*lexer)();
};

constexpr Choice kChoices[] = {
    {".c", CSourceLexer},
    {".cc", CSourceLexer},
    {".cpp", CSourceLexer},
    {".cppm", CSourceLexer},
    {".cxx", CSourceLexer},
    {".c++", CSourceLexer},
    {".h", CSourceLexer},
    {".hh", CSourceLexer},
    {".hpp", CSourceLexer},
    {".hxx", CSourceLexer},
    {".h++", CSourceLexer},
    {".inc", CSourceLexer},
    {".inl", CSourceLexer},
    {".ipp", CSourceLexer},
    {".ixx", CSourceLexer},
    {".idl", CSourceLexer},
    {".dlg", ResourceLexer},
    {".rc", ResourceLexer},
    {".rc2", ResourceLexer},
    {".mak", MakefileSourceLexer},
    {".mk", MakefileSourceLexer},
    {"makefile", MakefileSourceLexer},
    {"gnumakefile", MakefileSourceLexer},
    {".def", ModuleDefinitionLexer},
    {".ini", IniLexer},
    {".inf", IniLexer},
    {".cfg", IniLexer},
    {".reg", IniLexer},
    {".editorconfig", IniLexer},
    {".bat", BatchLexer},
    {".cmd", BatchLexer},
    {".md", MarkdownLexer},
    {".markdown", MarkdownLexer},
};

}  // namespace

const Lexer* LexerFor(std::string_view path) {
  std::string_view name = FileNamePart(path);
  std::string_view extension = name.substr(std::min(name.rfind('.'), name.size()));
  for (const Choice& choice : kChoices)
    if (EqualIgnoringCase(name, choice.name) || EqualIgnoringCase(extension, choice.name))
      return &choice.lexer();
  return nullptr;
}

}  // namespace tarrow
