// The room of Compare Files.
#pragma once

#include "edit/documents/result_run.h"
#include "framework/command_target.h"
#include "tools/comparison/compare_dialog.h"

namespace tarrow {

class ComparisonRoom final : public CommandTarget {
 public:
  explicit ComparisonRoom(const ResultServices& program) : program_(program) {}

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnCompare();
  void Compare();

  const ResultServices program_;
  ComparedFiles files_;  // the last ones
};

}  // namespace tarrow
