#include "framework/message_map.h"

namespace tarrow {

// A linear scan: a map has some thirty entries and a message costs far more than looking through them.
const MessageEntry* MessageMap::Find(UINT message) const {
  for (const MessageMap* map = this; map; map = map->base)
    for (std::size_t i = 0; i < map->count; ++i)
      if (map->entries[i].Takes(message)) return &map->entries[i];
  return nullptr;
}

const MessageEntry* MessageMap::FindCommand(UINT id, UINT code) const {
  for (const MessageMap* map = this; map; map = map->base)
    for (std::size_t i = 0; i < map->count; ++i)
      if (map->entries[i].TakesCommand(id, code)) return &map->entries[i];
  return nullptr;
}

}  // namespace tarrow
