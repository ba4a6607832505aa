// CTextFileView: a text file of any size up to 4 GB, a line to a row.
#pragma once

#include "viewer/views/file_view.h"
#include "viewer/views/text_view_rows.h"

#include <memory>
#include <optional>

namespace tarrow {

enum class TextViewOpening {
  kShown,
  kNotShown,  // the user has been told why, or did not want it
  kTooLarge,  // for a text, of which the user has not been told
};

class CTextFileView final : public CFileView {
 public:
  // Shows the file `path` (full, lower case) in a new window in front, once its lines have been found; the
  // user may cancel that.
  static TextViewOpening Open(const DocumentServices& program, const std::string& path, std::uint32_t flags);

  void GotoPosition(LineNo row, ColumnNo column) override;
  void ShowFileStats() override;
  void ApplySettings(const LOGFONTW* font) override;

  Charset SearchCharset() const override { return content_ ? content_->rows->TextCharset() : Charset(); }

 protected:
  ViewRows* Rows() const override { return content_ ? &*content_->rows : nullptr; }
  void CloseFile() override { content_.reset(); }
  bool Refresh() override;
  bool Reopen(bool mayTakeLong) override;
  void OnGoto() override;

 private:
  struct Content {
    explicit Content(int tabWidth) : file(tabWidth) {}

    CLineFile file;
    std::optional<TextViewRows> rows;
  };

  CTextFileView(const DocumentServices& program, const std::string& path, std::uint32_t flags);
  RecordFileOutcome OpenFile(bool asks);

  std::unique_ptr<Content> content_;
};

}  // namespace tarrow
