// What matcher and search have worked out from the code of a pattern: kept with the pattern, made on demand.
#pragma once

#include "search/pattern/compiled_pattern.h"
#include "search/pattern/match_program.h"
#include "search/pattern/search_plan.h"

#include <optional>

namespace tarrow {

struct PreparedSearch {
  MatchProgram program;
  std::optional<SearchPlan> plan;
  std::optional<ScanPlan> scanPlan;
};

// The decoded program of `pattern`. Throws std::bad_alloc.
MatchProgram& ProgramOf(CompiledPattern& pattern);

// The plan of `pattern`, whose first-character map is valid. Throws std::bad_alloc.
const SearchPlan& PlanOf(CompiledPattern& pattern);

// Its plan for an anchored scan. Throws std::bad_alloc.
const ScanPlan& ScanPlanOf(CompiledPattern& pattern);

}  // namespace tarrow
