#include "edit/files/known_file.h"

namespace tarrow {

using Found = FileLook::Found;

void KnownFile::Take(const FileLook& look) {
  taken_ = told_ = look;
  kept_ = {};
}

FileNews KnownFile::OnLook(const FileLook& look, bool modified) {
  if (taken_.found == Found::kUnknown || look.found == Found::kUnknown || look == told_)
    return FileNews::kNone;
  told_ = look;
  if (IsKnown(look)) return FileNews::kNone;
  if (look.found == Found::kNothing) return FileNews::kGone;
  return modified ? FileNews::kOverwriteOrReload : FileNews::kReloadOrKeep;
}

bool KnownFile::MustAskBeforeSave(const FileLook& look) const {
  return taken_.found != Found::kUnknown && look.found == Found::kFile && !IsKnown(look);
}

}  // namespace tarrow
