#include "shell/program.h"

#include "framework/unicode.h"

namespace tarrow {

Program::Program(SettingsFiles& settingsFiles)
    : state{settingsFiles, MakeSettingsStore(AnsiToUtf8)},
      frame(state, messages),
      messages(frame, state.settings.global, frame.GetBars()),
      wait(frame, selector),
      options(settingsFiles, state.store, state.settings, state.homeDirectory),
      help(frame, messages, selector, state.helpFile),
      services{frame,
               windows,
               files,
               messages,
               frame.GetBars(),
               wait,
               help,
               options,
               state.settings.global,
               state.screenFont,
               state.settings.styles},
      files(services, state.settings.recentFiles, frame.Menus()),
      recovery(services),
      windows(services, selector, recovery, frame.GetBars(), frame.Menus()),
      keys(state.store, frame.Menus()),
      stored(state.store),
      settings(frame, state, windows, keys, stored, messages, help),
      session(state, services, files, windows),
      projects(frame, state, windows, keys, files, session),
      tools(frame, messages, state.store),
      changedFiles(frame),
      ending(frame, windows, selector, session, recovery, frame.GetBars(), help, messages),
      rooms(services, help, stored, options, projects) {
  for (CommandTarget* room : rooms.Targets()) frame.AddTarget(*room);
  frame.AddTarget(files);
  frame.AddTarget(windows);
  frame.AddTarget(settings);
  frame.AddTarget(projects);
  frame.AddTarget(tools);
  frame.AddTarget(help);
  frame.AddTarget(recovery);
  frame.AddTarget(ending);
  frame.AddTarget(changedFiles);
}

}  // namespace tarrow
