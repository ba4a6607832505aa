// CHexFileView: a file as a hex dump, sixteen bytes to a row; the first 4 GB of it.
#pragma once

#include "viewer/views/file_view.h"
#include "viewer/views/hex_view_rows.h"

#include <memory>

namespace tarrow {

class CHexFileView final : public CFileView {
 public:
  // Shows the file `path` (full, lower case) in a new window. Null when that was not possible, of which the
  // user has been told.
  static CHexFileView* Open(const DocumentServices& program, const std::string& path, std::uint32_t flags);

  // Puts the caret before a byte of the file and brings it into view.
  void GotoAddress(std::uint32_t address);

  void GotoPosition(LineNo row, ColumnNo byte) override;
  void ShowFileStats() override;

  // What is searched is taken for text of the system's code page, as it is shown.
  Charset SearchCharset() const override { return Charset(SystemCodePage()); }

 protected:
  ViewRows* Rows() const override { return content_ ? &content_->rows : nullptr; }
  void CloseFile() override { content_.reset(); }
  bool Refresh() override { return content_->file.Refresh(); }
  bool Reopen(bool mayTakeLong) override;
  void OnGoto() override;

 private:
  struct Content {
    CFixedRecordFile file{kHexRowBytes};
    HexViewRows rows{file};
  };

  CHexFileView(const DocumentServices& program, const std::string& path, std::uint32_t flags);
  void OpenFile();

  std::unique_ptr<Content> content_;
  std::uint64_t size_ = 0;  // of all of the file
};

}  // namespace tarrow
