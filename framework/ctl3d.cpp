#include "framework/ctl3d.h"

#include "framework/wnd.h"

namespace tarrow {
namespace {

constexpr WORD kEveryControl = 0xFFFF;

const Ctl3dBinding* current = nullptr;

template <typename F>
void Look(HMODULE module, const char* name, F& entry) {
  entry = reinterpret_cast<F>(::GetProcAddress(module, name));
}

}  // namespace

Ctl3dBinding::Ctl3dBinding() {
  UINT mode = ::SetErrorMode(SEM_NOOPENFILEERRORBOX);
  module_.Reset(::LoadLibraryW(L"CTL3D32.DLL"));
  ::SetErrorMode(mode);
  if (Bind())
    current = this;
  else
    module_.Reset();
}

bool Ctl3dBinding::Bind() {
  if (!module_) return false;
  BOOL(WINAPI * enrol)(HINSTANCE) = nullptr;
  Look(module_.Get(), "Ctl3dRegister", enrol);
  if (!enrol) return false;
  registered_ = enrol(ModuleInstance());
  if (!registered_) return false;
  Look(module_.Get(), "Ctl3dSubclassDlg", subclassDlg_);
  Look(module_.Get(), "Ctl3dCtlColorEx", ctlColorEx_);
  Look(module_.Get(), "Ctl3dColorChange", colorChange_);
  Look(module_.Get(), "Ctl3dUnregister", unregister_);
  return true;
}

Ctl3dBinding::~Ctl3dBinding() {
  if (current != this) return;
  current = nullptr;
  if (unregister_) unregister_(ModuleInstance());
}

const Ctl3dBinding* Ctl3dBinding::Current() {
  return current;
}

void Ctl3dBinding::Adopt(HWND dialog) const {
  if (subclassDlg_) subclassDlg_(dialog, kEveryControl);
}

HBRUSH Ctl3dBinding::ControlColor(UINT message, WPARAM w, LPARAM l) const {
  return ctlColorEx_ ? ctlColorEx_(message, w, l) : nullptr;
}

void Ctl3dBinding::ColorChange() const {
  if (colorChange_) colorChange_();
}

}  // namespace tarrow
