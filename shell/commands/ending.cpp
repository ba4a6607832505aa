#include "shell/commands/ending.h"

#include "ui/commands/commands.h"
#include "ui/program/private_messages.h"

#include <utility>

namespace tarrow {

constinit const MessageMap Ending::kMessageMap =
    MessageMap::Make<nullptr, OnCommand<kFileExit, &Ending::OnExit>,
                     On<WM_QUERYENDSESSION, &Ending::OnQueryEndSession>,
                     On<WM_ENDSESSION, &Ending::OnEndSession>, On<WM_CLOSE, &Ending::OnClose>>();

// A logout sends no WM_CLOSE: what is to be kept is written here. It does not wait for an answer, either. One
// that is forced asks nobody.
void Ending::OnEndSession(bool ending) {
  bool wasAsked = std::exchange(wasAsked_, false);
  if (!ending) return;
  messages_.Mute();
  session_.Save();
  recovery_.EndNow(wasAsked);
}

void Ending::OnClose() {
  if (!windows_.QueryCloseAll()) return;
  selector_.Destroy();
  frame_.TellTargets(kNoDocumentMessage);
  session_.Save();
  bars_.Destroy();
  help_.Quit();
  frame_.Destroy();
}

}  // namespace tarrow
