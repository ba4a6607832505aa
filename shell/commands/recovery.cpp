#include "shell/commands/recovery.h"

#include "base/byte_sink.h"
#include "edit/documents/log.h"
#include "edit/files/file_save.h"
#include "edit/files/look_at_file.h"
#include "edit/files/save_disk.h"
#include "edit/files/save_leftovers.h"
#include "framework/file.h"
#include "framework/text_resources.h"
#include "shell/commands/recovery_dialog.h"
#include "ui/program/private_messages.h"
#include "ui/program/string_ids.h"

#include <utility>
#include <vector>

namespace tarrow {
namespace {

constexpr DWORD kWriteAfter = 1000;  // milliseconds after a change
constexpr int kStatusSeconds = 5;

// Compares what is written with a file.
class SameAsFile final : public ByteSink {
 public:
  explicit SameAsFile(const std::string& path)
      : file_(path, CFile::Mode::kRead, CFile::Share::kReadWrite), left_(file_.Size()) {}

  void Write(std::string_view bytes) override {
    std::string same(isSame_ && bytes.size() <= left_ ? bytes.size() : 0, '\0');
    isSame_ = file_.Read(same) == bytes.size() && same == bytes;
    left_ -= same.size();
  }
  bool IsSame() const { return isSame_ && left_ == 0; }

 private:
  CFile file_;
  std::uint64_t left_;
  bool isSame_ = true;
};

// Whether a file holds exactly a text as it would be saved.
bool Holds(const std::string& path, TextView text, FileFormat format) {
  SameAsFile file(path);
  SaveText(text, format, file);
  return file.IsSame();
}

// Whether the file of a text is there, and another than it was.
bool HasChanged(const JournalDescription& name) {
  FileLook look = LookAtFile(name.name);
  return look.found == FileLook::Found::kFile && FileStamp{look.size, look.modified} != name.file;
}

void CALLBACK PostDue(void* frame, BOOLEAN) {
  ::PostMessageW(static_cast<HWND>(frame), kJournalsDueMessage, 0, 0);
}

}  // namespace

constinit const MessageMap Recovery::kMessageMap =
    MessageMap::Make<nullptr, On<kJournalsDueMessage, &Recovery::OnDue>,
                     On<kJournalsIdleMessage, &Recovery::OnQueueIdle>>();

// A window's text and its journal, which ends with the window.
class Recovery::WatchedText final : private JournaledText {
 public:
  WatchedText(const JournalServices& services, CTwFileEdit& window)
      : window_(window), journal(services, *this) {
    window_.Control().SetObserver(&journal);
  }
  ~WatchedText() {
    window_.Control().SetObserver(nullptr);
    journal.End();
  }
  WatchedText(const WatchedText&) = delete;
  WatchedText& operator=(const WatchedText&) = delete;

  // A text that is not saved is kept, however it came to be so.
  void Follow() {
    if (!window_.IsUnsaved()) return journal.End();
    journal.OnRenamed();
    journal.Want();
  }

 private:
  TextView JournalView() const override { return window_.Control().View(); }
  JournalDescription JournalName() const override { return window_.JournalName(); }

  CTwFileEdit& window_;

 public:
  Journal journal;
};

Recovery::Keeping::Keeping(std::string directory, HWND frame, std::function<void()> isWanted)
    : disk(std::move(directory)),
      queue([frame] { ::PostMessageW(frame, kJournalsIdleMessage, 0, 0); }),
      services{disk, queue, std::move(isWanted)} {}

Recovery::Recovery(const DocumentServices& services) : services_(services) {}

Recovery::~Recovery() = default;

void Recovery::Start(std::string directory) {
  if (directory.empty()) return;
  keeping_.emplace(std::move(directory), services_.frame.Handle(), [this] { StartTimer(); });
}

void Recovery::Opened(CMDIChildWnd& child) {
  auto* edit = dynamic_cast<CTwFileEdit*>(&child);
  if (!keeping_ || !edit || dynamic_cast<CTwLog*>(edit)) return;
  texts_[edit] = std::make_unique<WatchedText>(keeping_->services, *edit);
}

void Recovery::Retitled(CMDIChildWnd& child) {
  if (auto text = texts_.find(&child); text != texts_.end()) text->second->Follow();
}

void Recovery::Closed(CMDIChildWnd& child) {
  texts_.erase(&child);
}

void Recovery::StartTimer() noexcept {
  HANDLE timer = nullptr;
  constexpr ULONG kOnce = WT_EXECUTEONLYONCE | WT_EXECUTEINTIMERTHREAD;
  if (!timer_ &&
      ::CreateTimerQueueTimer(&timer, nullptr, PostDue, services_.frame.Handle(), kWriteAfter, 0, kOnce))
    timer_.Reset(timer);
}

LRESULT Recovery::OnDue(WPARAM, LPARAM) {
  timer_.Reset();
  bool isBehind = false;
  for (auto& [window, text] : texts_) {
    text->journal.Write();
    isBehind = isBehind || text->journal.IsBehind();
    std::optional<FileCause> failure = text->journal.TakeFailure();
    if (!failure) continue;
    std::string cause = LoadText(kTextFirstFileCause + static_cast<int>(*failure));
    services_.status.ShowStatus(FormatTextResource(kTextNotProtected, {cause}), kStatusSeconds);
  }
  if (isBehind) StartTimer();
  return 0;
}

LRESULT Recovery::OnQueueIdle(WPARAM, LPARAM) {
  for (auto& [window, text] : texts_) text->journal.CopyOn();
  return 0;
}

void Recovery::EndNow(bool wasAsked) {
  for (auto& [window, text] : texts_) wasAsked ? text->journal.End() : text->journal.Write();
  if (keeping_) keeping_->queue.Finish();
}

// A run that ended between the saving of a text and the removal of its journal has left nothing to recover.
void Recovery::DropSaved(std::vector<LeftText>& texts) const {
  std::erase_if(texts, [](LeftText& left) {
    const JournalDescription& name = left.state.description;
    if (name.isUntitled || !IsOnLocalDisk(name.name) || !HasChanged(name)) return false;
    try {
      if (!Holds(name.name, RecoverText(left).View(), name.format)) return false;
      DiscardText(left);
      return true;
    } catch (const std::exception&) {
      return false;
    }
  });
}

void Recovery::Offer() {
  try {
    if (keeping_) OfferTexts();
  } catch (const std::exception&) {  // whatever it is, the program goes on, and offers them again
    services_.messages.ReportOutOfMemory();
  }
}

void Recovery::OfferTexts() {
  std::vector<LeftText> texts = ClaimLeftTexts(keeping_->disk);
  DropSaved(texts);
  if (texts.empty()) return;
  CRecoveryDialog dialog(services_.messages, texts);
  if (dialog.DoModal(services_.frame.Handle()) != IDOK) return;
  WaitState wait(services_.waiting);
  // The newest on top.
  for (std::size_t i = dialog.Chosen().size(); i-- > 0;) Open(texts[dialog.Chosen()[i]]);
}

// A file that is not there any more has nothing that could be overwritten; and what has changed it may have
// been the very saving of this text, broken off.
JournalDescription Recovery::NameOf(const LeftText& left) const {
  JournalDescription name = left.state.description;
  if (name.isUntitled) {
    name.name = FormatTextResource(kTextRecovered, {name.name});
    return name;
  }
  bool hasChanged = HasChanged(name);
  if (WindowsSaveDisk disk; hasChanged && FindWholeText(disk, name.name)) {
    FileLook look = LookAtFile(name.name);
    name.file = {look.size, look.modified};
    hasChanged = false;
  }
  if (!hasChanged && !FindChildShowing(services_.frame, name.name)) return name;
  name.name = FormatTextResource(hasChanged ? kTextRecoveredChanged : kTextRecovered, {name.name});
  name.isUntitled = true;
  name.file = {};
  return name;
}

void Recovery::Open(LeftText& left) {
  try {
    TextBuffer text = RecoverText(left);
    CTwFileEdit* window = CTwFileEdit::OpenUnsaved(services_, NameOf(left), std::move(text),
                                                   NewWindowFlags(services_.settings));
    if (auto watched = texts_.find(window); watched != texts_.end())
      watched->second->journal.TakeOver(left.state.description, std::move(left.files));
  } catch (const CFileException& error) {
    services_.messages.ShowFileError(nullptr, error);
  } catch (const CMemoryException&) {
    services_.messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextNoMemoryForFile,
                                      {left.state.description.name});
  }
}

}  // namespace tarrow
