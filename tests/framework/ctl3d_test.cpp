#include "framework/ctl3d.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

// Some systems have the library and some have not: the binding must say which, and leave no trace behind it.
TEST(Ctl3d, IsInUseExactlyWhereTheLibraryTakesTheProgram) {
  ModuleHandle library(::LoadLibraryW(L"CTL3D32.DLL"));
  auto enrol = reinterpret_cast<BOOL(WINAPI*)(HINSTANCE)>(
      library ? ::GetProcAddress(library.Get(), "Ctl3dRegister") : nullptr);
  bool usable = enrol && enrol(::GetModuleHandleW(nullptr));
  {
    Ctl3dBinding binding;
    EXPECT_EQ(usable, Ctl3dBinding::Current() != nullptr);
  }
  EXPECT_EQ(nullptr, Ctl3dBinding::Current());
}

}  // namespace
}  // namespace tarrow
