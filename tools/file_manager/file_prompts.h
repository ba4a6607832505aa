// The small dialogs of the file manager: where to, what name, what time, which attributes.
//
// Each shows what its members say and takes the user's answer into them on OK. `subject` names the files.
#pragma once

#include "framework/dialog.h"

#include <cstdint>
#include <string>

namespace tarrow {

// Copy or Move: a directory, or a new name.
class CTargetDialog final : public CDialog {
 public:
  CTargetDialog(std::string title, std::string subject, std::string directory);

  std::string target;

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  std::span<const DialogField> Fields() const override;
  bool OnInitDialog() override;

 private:
  void OnBrowse();
  void OnTargetChanged();

  std::string title_, subject_, directory_;
};

// Rename: the pattern that the names match, and that of the new ones.
class CRenameDialog final : public CDialog {
 public:
  explicit CRenameDialog(std::string subject);

  std::string from, to;

 protected:
  std::span<const DialogField> Fields() const override;
  bool OnInitDialog() override;

 private:
  std::string subject_;
};

// Touch: now, or a date and time of the user's.
class CTouchDialog final : public CDialog {
 public:
  // Begins with `time` (100 nanoseconds since 1601, UTC).
  CTouchDialog(std::string subject, std::uint64_t time);

  std::uint64_t Time() const { return time_; }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  bool OnInitDialog() override;
  void OnOk() override;

 private:
  void OnWhen();

  std::string subject_;
  std::uint64_t time_;
};

// Attributes: set, clear, or leave as they are where the files differ.
class CAttributesDialog final : public CDialog {
 public:
  // The attributes that all files have, and those that any has.
  CAttributesDialog(std::string subject, std::uint32_t all, std::uint32_t any);

  std::uint32_t Set() const { return set_; }
  std::uint32_t Clear() const { return clear_; }

 protected:
  bool OnInitDialog() override;
  void OnOk() override;

 private:
  std::string subject_;
  std::uint32_t all_, any_;
  std::uint32_t set_ = 0, clear_ = 0;
};

}  // namespace tarrow
