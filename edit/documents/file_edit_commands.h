// The editing commands and the editing keys of a text window: they hand text and selection to the engines and
// the outcome to the control.
//
// Each command is one unit of undo. A command that changes the text is refused with a beep where the window
// is read-only; running out of memory is reported and leaves the text as it was; Escape ends a command that
// takes long.
#pragma once

#include "edit/commands/child_flags.h"
#include "edit/commands/editing_command.h"
#include "edit/control/text_control.h"
#include "edit/documents/document_services.h"

#include <optional>
#include <string>

namespace tarrow {

// What the commands need of their window.
class EditingOwner {
 public:
  virtual std::uint32_t EditFlags() const = 0;

  // Takes over the flags (child_flags.h) and shows them in the status bar.
  virtual void ChangeEditFlags(std::uint32_t flags) = 0;

  // The name of the text, for questions about it.
  virtual const std::string& EditName() const = 0;

  // The text counts as saved.
  virtual void MarkClean() = 0;

  // The warning beep for this window.
  virtual void Beep(UINT sound) = 0;

  // A double click in the text: true when it means something of its own here.
  virtual bool OnTextDoubleClick(BytePos) { return false; }

 protected:
  ~EditingOwner() = default;
};

class EditingCommands final : public TextControlHooks {
 public:
  // All three must outlive the object, which takes the control's keys from now on.
  EditingCommands(const DocumentServices& program, TextControl& control, EditingOwner& owner);

  // Runs a command of editing_command.h; false when `id` is none.
  bool Run(UINT id);

  // Whether such a command can act now, and its check mark.
  CommandState State(UINT id) const;

  // file_edit_keys.cpp
  bool OnCharacter(char32_t code) override;
  bool OnKeyDown(UINT key, bool shift, bool control) override;
  bool OnDoubleClick(BytePos at) override;
  MissingCharacters OnMissingCharacters() override;

 private:
  void Do(const EditingCommand& command);
  void Play(const EditingCommand& command);
  void Show(const EditOutcome& outcome, CommandId id);
  void Undo();
  void Repeat();
  void Cut();
  void Paste();
  bool AppendToClipboard();
  void GotoLine();
  void Toggle(CommandId id);
  bool IsChecked(UINT id) const;

  bool BreakLineIndented();
  bool TypeTab();
  bool TypeOver(char32_t code);
  void RememberPosition() { previousPosition_ = control_.Selection().end; }

  bool Has(std::uint32_t flag) const { return (owner_.EditFlags() & flag) != 0; }
  // A message to the control, from wherever, makes it read-only too.
  bool IsReadOnly() const { return Has(kReadOnly) || control_.IsReadOnly(); }
  IndentSettings Indent() const;

  const DocumentServices& program_;
  TextControl& control_;
  EditingOwner& owner_;
  std::optional<MissingCharacters> missing_;  // what the user wants of them, once asked
  BytePos previousPosition_;                  // where the caret was before the last long jump
};

}  // namespace tarrow
