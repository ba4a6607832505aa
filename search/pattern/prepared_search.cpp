#include "search/pattern/prepared_search.h"

namespace tarrow {

PreparedSearchOwner::PreparedSearchOwner() = default;
PreparedSearchOwner::PreparedSearchOwner(const PreparedSearchOwner&) {}
PreparedSearchOwner::PreparedSearchOwner(PreparedSearchOwner&&) noexcept = default;
PreparedSearchOwner& PreparedSearchOwner::operator=(PreparedSearchOwner&&) noexcept = default;
PreparedSearchOwner::~PreparedSearchOwner() = default;

PreparedSearchOwner& PreparedSearchOwner::operator=(const PreparedSearchOwner&) {
  search.reset();
  return *this;
}

MatchProgram& ProgramOf(CompiledPattern& pattern) {
  std::unique_ptr<PreparedSearch>& search = pattern.prepared.search;
  if (!search) {
    auto made = std::make_unique<PreparedSearch>();
    made->program = DecodeProgram(pattern);
    search = std::move(made);
  }
  return search->program;
}

const SearchPlan& PlanOf(CompiledPattern& pattern) {
  MatchProgram& program = ProgramOf(pattern);
  std::optional<SearchPlan>& plan = pattern.prepared.search->plan;
  if (!plan) plan = PlanSearch(program, pattern);
  return *plan;
}

const ScanPlan& ScanPlanOf(CompiledPattern& pattern) {
  MatchProgram& program = ProgramOf(pattern);
  std::optional<ScanPlan>& plan = pattern.prepared.search->scanPlan;
  if (!plan) plan = PlanScan(program, pattern);
  return *plan;
}

}  // namespace tarrow
