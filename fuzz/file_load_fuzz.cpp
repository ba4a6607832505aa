// Any bytes load, in one format or another, and saving gives them back.
#include "edit/files/file_load.h"
#include "edit/files/file_save.h"

#include <cstdint>
#include <cstdlib>

namespace {

struct Yes final : tarrow::LoadQuestions {
  bool AcceptControlByte(unsigned char) override { return true; }
  bool AcceptLineEnds() override { return true; }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  tarrow::StringSource source(bytes);
  Yes yes;
  auto loaded = tarrow::LoadText(source, tarrow::kMaxTextSize, yes);
  if (!loaded) std::abort();
  tarrow::StringByteSink saved;
  tarrow::SaveText(loaded->text.View(), loaded->format, saved);
  if (saved.text != bytes) std::abort();
  // The line index agrees with the text.
  std::string text = loaded->text.View().Copy();
  std::int32_t lines = 1;
  for (std::size_t at = 0; (at = text.find("\r\n", at)) != std::string::npos; ++lines)
    if (loaded->text.LineStart(tarrow::LineNo(lines)).value != static_cast<std::int32_t>(at += 2))
      std::abort();
  if (loaded->text.LineCount().value != lines) std::abort();
  return 0;
}
