#include "naive_comparison.h"

#include <algorithm>
#include <cstdio>
#include <deque>
#include <vector>

namespace tarrow {
namespace {

struct Line {
  std::string text;
  unsigned hash = 0;
  unsigned xorSum = 0;
  std::int64_t number = 0;
};

struct Candidate {
  std::int64_t line;
  std::int64_t run;
};

std::string WithoutCrBeforeLf(const std::string& bytes) {
  std::string out;
  for (std::size_t i = 0; i < bytes.size(); ++i)
    if (bytes[i] != '\r' || i + 1 == bytes.size() || bytes[i + 1] != '\n') out += bytes[i];
  return out;
}

struct File {
  std::string text;
  std::size_t at = 0;
  std::int64_t linesRead = 0;
  std::deque<Line> pending;
  std::vector<Candidate> candidates;

  bool AtEnd() const { return at == text.size(); }
  std::int64_t Settled() const { return linesRead - static_cast<std::int64_t>(pending.size()); }

  Line Read() {
    Line line;
    for (int count = 0; count < 127 && !AtEnd(); ++count) {
      char c = text[at++];
      if (c == '\n') break;
      line.text += c;
      auto value = static_cast<signed char>(c);
      line.hash = (((line.hash << 1 | line.hash >> 15) & 0xFFFF) + static_cast<unsigned>(value)) & 0xFFFF;
      line.xorSum = (line.xorSum ^ static_cast<unsigned>(value)) & 0xFFFF;
    }
    return line;
  }
};

bool Equal(const Line& a, const Line& b) {
  return std::min<std::size_t>(a.text.size(), 79) == std::min<std::size_t>(b.text.size(), 79) &&
         a.hash == b.hash && a.xorSum == b.xorSum;
}

struct Comparison {
  File files[2];
  std::string out;

  void Side(std::int64_t first, std::int64_t count, std::int64_t last) {
    out += std::to_string(first);
    if (count > 1) out.append(",").append(std::to_string(last));
  }

  void Settle(std::int64_t run, std::int64_t end0, std::int64_t end1) {
    std::int64_t ends[2] = {end0, end1}, counts[2];
    for (int f : {0, 1}) counts[f] = ends[f] - run - files[f].Settled();
    if (counts[0] > 0 || counts[1] > 0) {
      Side(files[0].pending.empty() ? files[0].linesRead : files[0].pending[0].number, counts[0], end0 - run);
      out += counts[1] < 1 ? "d" : counts[0] < 1 ? "a" : "c";
      Side(files[1].pending.empty() ? files[1].linesRead + 1 : files[1].pending[0].number, counts[1],
           end1 - run);
      out += "\r\n";
      for (std::int64_t i = 0; i < counts[0]; ++i)
        out.append("< ").append(files[0].pending[static_cast<std::size_t>(i)].text).append("\r\n");
      if (counts[0] > 0 && counts[1] > 0) out += "---\r\n";
      for (std::int64_t i = 0; i < counts[1]; ++i)
        out.append("> ").append(files[1].pending[static_cast<std::size_t>(i)].text).append("\r\n");
    }
    for (int f : {0, 1})
      while (!files[f].pending.empty() && files[f].pending[0].number <= ends[f]) files[f].pending.pop_front();
  }

  void Force(std::uint64_t limit, const Line& line) {
    auto cost = [&] {
      std::uint64_t n = line.text.size();
      for (const File& file : files)
        for (const Line& l : file.pending) n += l.text.size() + 32;
      return n;
    };
    while (cost() > limit && !(files[0].pending.empty() && files[1].pending.empty())) {
      Settle(0, std::min(files[0].Settled() + 11, files[0].linesRead),
             std::min(files[1].Settled() + 11, files[1].linesRead));
      files[0].candidates.clear();
      files[1].candidates.clear();
    }
  }

  void ReadLine(int f, std::uint64_t limit) {
    File &file = files[f], &other = files[1 - f];
    Line line = file.Read();
    // A run that goes on costs no memory: both its lines are settled as soon as they are read.
    bool goesOn = file.pending.empty() && file.candidates.size() == 1 && file.candidates[0].run >= 3 &&
                  !other.pending.empty() && file.candidates[0].line == other.Settled() &&
                  other.pending[0].text == line.text;
    if (!goesOn) Force(limit, line);
    line.number = ++file.linesRead;
    file.pending.push_back(line);
    std::vector<Candidate> previous = file.candidates;
    file.candidates.clear();
    for (const Line& l : other.pending)
      if (Equal(l, line) && file.candidates.size() < 5) file.candidates.push_back({l.number, 1});
    for (const Candidate& p : previous)
      for (Candidate& c : file.candidates)
        if (c.line == p.line + 1) c.run += p.run;
    for (Candidate c : file.candidates) {
      if (c.run < 3) continue;
      Settle(c.run, f == 0 ? line.number : c.line, f == 0 ? c.line : line.number);
      file.candidates = {c};
      return;
    }
  }
};

}  // namespace

std::string NaiveComparison(const std::string& first, const std::string& second, std::uint64_t memoryLimit) {
  Comparison comparison;
  comparison.files[0].text = WithoutCrBeforeLf(first);
  comparison.files[1].text = WithoutCrBeforeLf(second);
  while (!comparison.files[0].AtEnd() || !comparison.files[1].AtEnd())
    for (int f : {0, 1})
      if (!comparison.files[f].AtEnd()) comparison.ReadLine(f, memoryLimit);
  const File &a = comparison.files[0], &b = comparison.files[1];
  if (!std::equal(a.pending.begin(), a.pending.end(), b.pending.begin(), b.pending.end(), Equal))
    comparison.Settle(0, a.linesRead, b.linesRead);
  return comparison.out;
}

std::string ApplyNormalDiff(const std::string& first, const std::string& diff) {
  auto takeLine = [](const std::string& text, std::size_t& at) {
    std::size_t end = std::min(text.find('\n', at), text.size() - 1) + 1;
    std::string line = text.substr(at, end - at);
    at = end;
    return line;
  };
  std::string out;
  std::size_t at = 0, oldAt = 0;
  int oldLine = 1;
  while (at < diff.size()) {
    std::string line = takeLine(diff, at);
    int from = 0, to = 0;
    char kind = 0;
    if (std::sscanf(line.c_str(), "%d,%d%c", &from, &to, &kind) < 2) {
      std::sscanf(line.c_str(), "%d%c", &from, &kind);
      to = from;
    }
    for (; oldLine < from + (kind == 'a'); ++oldLine) out += takeLine(first, oldAt);
    if (kind != 'a')
      for (; oldLine <= to; ++oldLine) takeLine(first, oldAt);
    while (at < diff.size() && !(diff[at] >= '0' && diff[at] <= '9')) {
      line = takeLine(diff, at);
      if (line.starts_with("> ")) out += line.substr(2);
      bool added = line.starts_with("> ");
      if (at < diff.size() && diff[at] == '\\') {
        takeLine(diff, at);
        if (added) out.pop_back();
      }
    }
  }
  return out + first.substr(std::min(oldAt, first.size()));
}

}  // namespace tarrow
