#include "ui/commands/menus.h"

#include "base/text_format.h"

namespace tarrow {

namespace {

constexpr CommandId kFile[] = {kFileNew,        kFileOpen,      kFileManage,      kMenuSeparator, kFileSave,
                               kFileSaveAs,     kFileSaveAll,   kFileClose,       kMenuSeparator, kFilePrint,
                               kFilePrintSetup, kMenuSeparator, kRecentFileFirst, kMenuSeparator, kFileExit};

constexpr CommandId kFileWithoutDocument[] = {kFileNew,         kFileOpen,      kFileManage, kMenuSeparator,
                                              kRecentFileFirst, kMenuSeparator, kFileExit};

constexpr CommandId kEdit[] = {kEditUndo,      kMenuSeparator, kEditCut,       kEditCopy,  kEditPaste,
                               kEditMerge,     kMenuSeparator, kEditUpper,     kEditLower, kEditTranspose,
                               kMenuSeparator, kEditShiftLeft, kEditShiftRight};

constexpr CommandId kSearch[] = {kSearchFind,       kSearchFindNext,    kSearchFindPrev, kMenuSeparator,
                                 kSearchReplace,    kSearchReplaceNext, kMenuSeparator,  kSearchGotoLine,
                                 kSearchMatchBrace, kMenuSeparator,     kSearchGrep};

constexpr CommandId kSettings[] = {kSetAlign, kSetIndent,     kMenuSeparator,  kSetReadOnly,
                                   kSetClean, kMenuSeparator, kSetShowHScroll, kSetShowVScroll,
                                   kSetFont,  kMenuSeparator, kSetGlobal};

constexpr CommandId kGlobal[] = {kSetGlobal, kSearchGrep};

constexpr CommandId kProject[] = {kProjectCompile, kProjectLink,   kProjectBuild,  kProjectBuildTarget,
                                  kMenuSeparator,  kProjectDebug,  kProjectTest,   kMenuSeparator,
                                  kProjectViewLog, kMenuSeparator, kProjectSelect, kProjectConfigure};

constexpr CommandId kTools[] = {kToolCompare,    kToolExtractStrings, kToolSysMetrics,
                                kMenuSeparator,  kToolDialogEdit,     kToolImageEdit,
                                kToolCalculator, kMenuSeparator,      kToolRun};

constexpr CommandId kWindow[] = {kWindowTileVert, kWindowTileHorz, kWindowCascade, kWindowArrange,
                                 kMenuSeparator,  kWindowCloseAll, kWindowSelector};

constexpr CommandId kHelp[] = {kHelpContents,    kHelpSearch,    kMenuSeparator, kHelpContext, kHelpSDK,
                               kHelpEnvironment, kHelpFileStats, kMenuSeparator, kHelpAbout};

constexpr CommandId kHelpWithoutDocument[] = {kHelpContents, kHelpSearch, kMenuSeparator, kHelpAbout};

constexpr CommandId kContext[] = {kEditUndo,      kMenuSeparator, kEditCut,       kEditCopy,
                                  kEditPaste,     kMenuSeparator, kEditUpper,     kEditLower,
                                  kEditTranspose, kMenuSeparator, kEditShiftLeft, kEditShiftRight};

constexpr MenuPopup kNoDocumentBar[] = {{"&File", kFileWithoutDocument},
                                        {"&Global", kGlobal},
                                        {"&Project", kProject},
                                        {"&Tools", kTools},
                                        {"&Help", kHelpWithoutDocument}};

constexpr MenuPopup kEditBar[] = {{"&File", kFile},         {"&Edit", kEdit},       {"&Search", kSearch},
                                  {"Setti&ngs", kSettings}, {"&Project", kProject}, {"&Tools", kTools},
                                  {"&Window", kWindow},     {"&Help", kHelp}};

static_assert(kNoDocumentBar[kNoDocumentProjectPopup].items.data() == kProject);
static_assert(kNoDocumentBar[kNoDocumentToolsPopup].items.data() == kTools);
static_assert(kEditBar[kEditProjectPopup].items.data() == kProject);
static_assert(kEditBar[kEditWindowPopup].items.data() == kWindow);

}  // namespace

std::span<const MenuPopup> NoDocumentMenu() {
  return kNoDocumentBar;
}

std::span<const MenuPopup> EditMenu() {
  return kEditBar;
}

std::span<const CommandId> ContextMenu() {
  return kContext;
}

std::string WithKeyText(std::string_view itemText, std::string_view keyText) {
  return std::string(itemText.substr(0, itemText.find('\t'))).append(keyText);
}

std::string RecentFileText(int place, std::string_view path) {
  std::string text = FormatText("&%d ", {place});
  for (char c : path) text.append(c == '&' ? 2 : 1, c);
  return text;
}

}  // namespace tarrow
