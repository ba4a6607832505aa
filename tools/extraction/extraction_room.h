// The room of Extract Strings.
#pragma once

#include "base/anchored_pattern.h"
#include "edit/documents/result_run.h"
#include "framework/command_target.h"
#include "tools/extraction/extract_dialog.h"
#include "tools/extraction/extract_strings.h"

#include <memory>
#include <string>

namespace tarrow {

class ExtractionRoom final : public CommandTarget {
 public:
  // `makePattern` knows the regular expressions.
  ExtractionRoom(const ResultServices& program, AnchoredPatternMaker makePattern);

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnExtract();
  std::unique_ptr<AnchoredPattern> AskForPattern();
  void Extract(AnchoredPattern& pattern);
  static void ExtractFrom(const std::string& path, AnchoredPattern& pattern, ResultRun& run);

  const ResultServices program_;
  AnchoredPatternMaker makePattern_;
  ExtractionRequest request_{"", std::string(kDefaultStringPattern)};  // the last one
};

}  // namespace tarrow
