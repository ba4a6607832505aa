// WordHelp: help on the word at the caret, and the files that include lines name.
#pragma once

#include "edit/documents/document_services.h"
#include "project/help/help_request.h"
#include "project/help/include_line.h"

#include <string>

namespace tarrow {

class WordHelp {
 public:
  explicit WordHelp(const DocumentServices& program) : program_(program) {}

  // Help on the word at the caret of `text`.
  void Show(TextControl& text, HelpMode mode);

  // What F1 does: on an include line the file opens, anywhere else help is shown. Without the features of
  // projects, only how to get them.
  void ShowForContext(TextControl& text);

 private:
  void OpenInclude(const IncludeName& include);
  void OpenHelpFile(const std::string& file, const std::string& word);
  void StartProgram(const WordHelpRequest& request);

  const DocumentServices& program_;
};

}  // namespace tarrow
