// The rooms of the program. A new one is a member here, made with what it needs, and a line in Targets().
#pragma once

#include "edit/documents/document_services.h"
#include "print/print_room.h"
#include "search/find/find_commands.h"

#include <array>

namespace tarrow {

struct Rooms {
  // All that is handed in outlives the rooms.
  Rooms(const DocumentServices& program, Help& help, const StoredSettings& stored)
      : find(program.frame, program.documents, program.messages, program.status, program.waiting, help),
        print(program.frame, program.documents, program.messages, stored, program.settings) {}

  auto Targets() { return std::to_array<CommandTarget*>({&find, &print}); }

  FindCommands find;
  PrintRoom print;
};

}  // namespace tarrow
