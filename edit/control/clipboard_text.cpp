#include "edit/control/clipboard_text.h"

#include "base/exceptions.h"
#include "framework/handle.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace tarrow {
namespace {

// The format of our own: this header, then the bytes. A block may be larger than what was asked for, so the
// size is part of it.
struct BytesHeader {
  std::uint32_t size;
  std::uint32_t isUtf8;
};

UINT BytesFormat() {
  static const UINT format = ::RegisterClipboardFormatW(L"Tarrow Bytes");
  return format;
}

void FreeGlobal(HGLOBAL memory) {
  ::GlobalFree(memory);
}
using GlobalHandle = UniqueHandle<HGLOBAL, FreeGlobal>;

// A movable block of `size` bytes, zeroed and filled by `fill(char*)`.
template <typename Fill>
GlobalHandle MakeBlock(std::size_t size, Fill fill) {
  GlobalHandle block(::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size));
  void* memory = block ? ::GlobalLock(block.Get()) : nullptr;
  if (!memory) throw CMemoryException();
  fill(static_cast<char*>(memory));
  ::GlobalUnlock(block.Get());
  return block;
}

GlobalHandle BytesBlock(const TextView& text, const Charset& charset) {
  auto size = static_cast<std::uint32_t>(text.Size());
  return MakeBlock(sizeof(BytesHeader) + size, [&](char* at) {
    BytesHeader header{size, charset.IsUtf8()};
    std::memcpy(at, &header, sizeof header);
    at = std::copy(text.head.begin(), text.head.end(), at + sizeof header);
    std::copy(text.tail.begin(), text.tail.end(), at);
  });
}

GlobalHandle WideBlock(const TextView& text, const Charset& charset) {
  std::u16string wide = charset.ToWide(text);
  std::size_t bytes = wide.size() * sizeof(char16_t);
  return MakeBlock(bytes + sizeof(char16_t), [&](char* at) { std::memcpy(at, wide.data(), bytes); });
}

GlobalHandle AnsiBlock(const TextView& text) {
  return MakeBlock(static_cast<std::size_t>(text.Size()) + 1, [&](char* at) {
    at = std::copy(text.head.begin(), text.head.end(), at);
    std::copy(text.tail.begin(), text.tail.end(), at);
  });
}

void Give(UINT format, GlobalHandle block) {
  if (block && ::SetClipboardData(format, block.Get())) static_cast<void>(block.Release());
}

// Another program may hold the clipboard for a moment.
template <typename Use>
bool WithClipboard(HWND owner, Use use) {
  for (int attempt = 0; attempt < 10; ++attempt) {
    if (OpenedClipboard clipboard(owner); clipboard) {
      use();
      return true;
    }
    ::Sleep(5);
  }
  return false;
}

// Calls `read(const char*, size)` with the contents of a format; false when the clipboard has none.
template <typename Read>
bool ReadFormat(UINT format, Read read) {
  HGLOBAL block = ::GetClipboardData(format);
  auto memory = block ? static_cast<const char*>(::GlobalLock(block)) : nullptr;
  if (!memory) return false;
  struct Unlock {
    HGLOBAL block;
    ~Unlock() { ::GlobalUnlock(block); }
  } unlock{block};
  return read(memory, ::GlobalSize(block));
}

std::optional<std::string> ReadBytes(const Charset& charset) {
  std::optional<std::string> bytes;
  ReadFormat(BytesFormat(), [&](const char* memory, std::size_t size) {
    BytesHeader header{};
    if (size < sizeof header) return false;
    std::memcpy(&header, memory, sizeof header);
    if (header.isUtf8 != charset.IsUtf8() || header.size > size - sizeof header) return false;
    bytes.emplace(memory + sizeof header, header.size);
    return true;
  });
  return bytes;
}

std::optional<std::u16string> ReadWide() {
  std::optional<std::u16string> text;
  ReadFormat(CF_UNICODETEXT, [&](const char* memory, std::size_t size) {
    std::u16string_view wide(reinterpret_cast<const char16_t*>(memory), size / sizeof(char16_t));
    text = wide.substr(0, wide.find(u'\0'));
    return true;
  });
  return text;
}

}  // namespace

bool PutOnClipboard(HWND owner, const TextView& text, const Charset& charset) {
  try {
    GlobalHandle bytes = BytesBlock(text, charset), wide = WideBlock(text, charset);
    // From UTF-8 the system makes the ANSI text itself; ANSI text is given as it is, not by way of Unicode.
    GlobalHandle ansi = charset.IsUtf8() ? GlobalHandle() : AnsiBlock(text);
    return WithClipboard(owner, [&] {
      ::EmptyClipboard();
      Give(CF_UNICODETEXT, std::move(wide));
      Give(CF_TEXT, std::move(ansi));
      Give(BytesFormat(), std::move(bytes));
    });
  } catch (const std::bad_alloc&) {
    throw CMemoryException();
  }
}

std::optional<std::string> TextFromClipboard(HWND owner, const Charset& charset) {
  try {
    std::optional<std::string> bytes;
    bool opened = WithClipboard(owner, [&] {
      bytes = ReadBytes(charset);
      if (bytes) return;
      if (std::optional<std::u16string> wide = ReadWide()) bytes = charset.FromWide(*wide);
    });
    return opened ? bytes : std::nullopt;
  } catch (const std::bad_alloc&) {
    throw CMemoryException();
  }
}

std::u16string ForeignTextFromClipboard(HWND owner, const Charset& charset) {
  try {
    std::u16string wide;
    WithClipboard(owner, [&] {
      if (!ReadBytes(charset)) wide = ReadWide().value_or(std::u16string());
    });
    return wide;
  } catch (const std::bad_alloc&) {
    throw CMemoryException();
  }
}

bool HasClipboardText() {
  return ::IsClipboardFormatAvailable(CF_UNICODETEXT) || ::IsClipboardFormatAvailable(BytesFormat());
}

}  // namespace tarrow
