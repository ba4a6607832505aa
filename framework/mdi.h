// The MDI frame and its children.
//
// The frame owns the client window and hands a command first to the active child, then to its targets in
// order, then handles it itself. The
// children belong to their windows: a child deletes itself when its window is gone. Menu items and tool
// buttons ask the same way whether a command can run.
#pragma once

#include "framework/wnd.h"

#include <functional>
#include <vector>

namespace tarrow {

class CMDIChildWnd;

class CMDIFrameWnd : public CWnd {
 public:
  // Creates the frame. The client window is made in its WM_CREATE (see CreateClient).
  [[nodiscard]] bool CreateFrame(const WindowClass& windowClass, const WindowSpec& spec);

  HWND Client() const { return client_; }

  // The active child, or null.
  CMDIChildWnd* ActiveChild() const;
  bool ActiveChildIsMaximised() const;

  // The windows of the children from the top of the z-order, icon titles left out.
  std::vector<HWND> Children() const;

  // Puts children upon one another, the first on top and active.
  void Restack(const std::vector<HWND>& children) const;

  // Calls `visit` for each child from the top of the z-order, icon titles skipped, until it returns false.
  // Returns whether all were visited. Children may be destroyed on the way.
  bool ForEachChild(const std::function<bool(CMDIChildWnd&)>& visit) const;

  // Lets the title of the frame name the active child if that is maximised.
  void RefreshTitle() const;

  // Hides the children while many of them come or go, and shows them again. A child that is made meanwhile is
  // maximised only when they are shown: to make a maximised one, the system restores the one before it and
  // draws the frame anew.
  void HideChildren();
  void ShowChildren();

  // Destroys every child without a question.
  void DestroyChildren();

  void ActivateChild(CMDIChildWnd& child);
  void MaximiseChild(CMDIChildWnd& child);

  // Puts a target at the end of those that are asked between the active child and the frame itself. It must
  // outlive the frame's window.
  void AddTarget(CommandTarget& target) { targets_.push_back(&target); }

  // Hands a message to every target that has a handler for it.
  void TellTargets(UINT message);

  bool QueryCommand(UINT id, CommandState& state) const override;
  bool RunCommand(UINT id, UINT code, HWND control, LRESULT& result) override;

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

  // Makes the client window; the identifiers of the window list in `windowMenu` start at kFirstWindowId.
  [[nodiscard]] bool CreateClient(HMENU windowMenu);

  LRESULT DefaultProc(UINT message, WPARAM w, LPARAM l) override;
  LRESULT WindowProc(UINT message, WPARAM w, LPARAM l) override;

 public:
  static constexpr UINT kFirstWindowId = 0xFF00;

 private:
  bool DefersMaximising();

  HWND client_ = nullptr;
  std::vector<CommandTarget*> targets_;
  bool maximisesWhenShown_ = false;

  friend class CMDIChildWnd;
};

class CMDIChildWnd : public CWnd {
 public:
  // Creates the child in the frame's client window; the object then belongs to its window. False when the
  // window could not be made or its WM_CREATE refused.
  [[nodiscard]] bool CreateChild(CMDIFrameWnd& frame, const WindowClass& windowClass, std::string_view title,
                                 DWORD style, bool maximised);

  CMDIFrameWnd& Frame() const { return *frame_; }
  bool IsActive() const;

  // What a list of windows says of this one.
  virtual std::string ListText() const { return Text(); }

  // Whether it holds changes that are not saved.
  virtual bool IsUnsaved() const { return false; }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

  LRESULT DefaultProc(UINT message, WPARAM w, LPARAM l) override;
  LRESULT WindowProc(UINT message, WPARAM w, LPARAM l) override;
  void OnFinalMessage() override { delete this; }

 private:
  CMDIFrameWnd* frame_ = nullptr;
};

}  // namespace tarrow
