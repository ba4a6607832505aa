// CTwLog: a result window, into which the tools write what they find.
//
// It is an edit window that holds no file: read-only until the user lifts that, never modified, asked about
// or listed in the session; Save As writes its text and leaves the window what it is. Where its lines name
// places, it is navigable: Goto Line, a double click and the right button open the place that the line names,
// relative names being sought in the directory that was current when the window was made.
//
// What is appended comes in batches, each one change and one repaint, and nothing is kept for undo. The caret
// follows the end of the text until the user moves it; then caret and view stay where they are.
#pragma once

#include "base/text_sink.h"
#include "edit/documents/file_edit.h"
#include "edit/documents/source_place.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarrow {

class CTwLog final : public CTwFileEdit {
 public:
  // A new window in front; without a finder it is not navigable. Null when it could not be made, of which the
  // user has been told.
  static CTwLog* New(const DocumentServices& program, std::string title, PlaceFinder finder);

  // Tells the parts of the results by this lexer, which outlives the window or is given to it.
  void ReadBy(const Lexer& lexer);
  void ReadBy(std::unique_ptr<const Lexer> lexer);

  // Takes text for the end of the window, batched; call Finish() behind the last of it. Where memory ends it
  // throws CMemoryException, and the text stays as it was.
  TextSink& Sink() { return output_; }

  // Shows what is held back.
  void ShowHeld() { output_.Flush(); }

  // The last has come: shows what is still held back, and goes to the start unless the user has moved the
  // caret.
  void Finish();

  bool QuerySave(int) override { return true; }
  bool QueryCommand(UINT id, CommandState& state) const override;
  bool RunCommand(UINT id, UINT code, HWND control, LRESULT& result) override;

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  // Collects what comes until it is worth a change of the text.
  class Output final : public TextSink {
   public:
    explicit Output(TextControl& control) : control_(control) {}
    void Write(std::string_view bytes) override;
    void Flush();

   private:
    TextControl& control_;
    std::string held_;
    std::string shown_;  // last; kept for its room
    std::chrono::steady_clock::time_point flushed_{};
  };

  CTwLog(const DocumentServices& program, PlaceFinder finder);

  const Lexer* TextLexer() const override { return lexer_; }
  bool OnTextDoubleClick(BytePos at) override;
  void OnChange() {}
  void OnRefused() { Alert(MB_ICONEXCLAMATION); }
  bool CanEdit() const { return false; }
  void OnHelp();
  void OnSaveAs();
  void OnRButtonDown(UINT keys, POINT client);
  void GoToPlace();
  LRESULT OnOpenPlace(WPARAM w, LPARAM l);
  bool IsNavigable() const { return finder_ != nullptr; }
  std::string Line(std::int64_t line) const;

  PlaceFinder finder_;
  std::unique_ptr<const Lexer> ownLexer_;
  const Lexer* lexer_ = nullptr;
  Output output_{Control()};
  std::optional<SourcePlace> wanted_;  // being opened
};

}  // namespace tarrow
