// The rooms of the program. A new one is a member here, made with what it needs, and a line in Targets().
#pragma once

#include "edit/documents/document_services.h"
#include "print/print_room.h"
#include "project/project_room.h"
#include "search/files/global_search_room.h"
#include "search/find/find_commands.h"
#include "search/pattern/filter_pattern.h"
#include "shell/commands/list_files.h"
#include "tools/comparison/comparison_room.h"
#include "tools/extraction/extraction_room.h"
#include "tools/file_manager/file_manager_room.h"

#include <array>

namespace tarrow {

struct Rooms {
  // All that is handed in outlives the rooms.
  Rooms(const DocumentServices& program, Help& help, const StoredSettings& stored, ProjectSettings& settings,
        ProjectSwitching& projects)
      : find(program.frame, program.documents, program.messages, program.status, program.waiting, help),
        globalSearch(ResultsOf(program), program.options, help, ListFiles),
        comparison(ResultsOf(program)),
        extraction(ResultsOf(program), MakeFilterPattern),
        fileManager({program.frame, program.documents, program.messages, program.status, program.waiting}),
        print(program.frame, program.documents, program.messages, stored, program.settings),
        project(program, settings, projects) {}

  auto Targets() {
    return std::to_array<CommandTarget*>(
        {&find, &globalSearch, &comparison, &extraction, &fileManager, &print, &project});
  }

  FindCommands find;
  GlobalSearchRoom globalSearch;
  ComparisonRoom comparison;
  ExtractionRoom extraction;
  FileManagerRoom fileManager;
  PrintRoom print;
  ProjectRoom project;

 private:
  static ResultServices ResultsOf(const DocumentServices& program) {
    return {program.frame, program.documents, program.messages, program.status, program.waiting};
  }
};

}  // namespace tarrow
