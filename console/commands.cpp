#include "console/commands.h"

namespace tarrow {
namespace {

constexpr std::size_t kAnyNumber = static_cast<std::size_t>(-1);

constexpr Option kSearchOptions[] = {
    {'i', "ignore-case", "", "take letters of either case as equal"},
    {'w', "whole-word", "", "match whole words only"},
    {'c', "count", "", "print the count of matching lines of each file"},
};

constexpr Option kCompareOptions[] = {
    {'p', "patch", "", "print what the patch program takes, byte for byte"},
};

constexpr Option kStringsOptions[] = {
    {'e', "pattern", "PATTERN", "what to list (\"[ -~][ -~][ -~][ -~]+\")"},
};

constexpr Option kLinesOptions[] = {
    {'f', "first", "LINE", "begin at this line (1)"},
    {'n', "number", "COUNT", "print so many lines (all)"},
    {'t', "tab-size", "COLUMNS", "expand tabs to multiples of this (8)"},
    {'s', "statistics", "", "print the size and the count of lines instead"},
    {'y', "yes", "", "list a file with control characters without asking"},
};

constexpr Option kHexOptions[] = {
    {'f', "first", "ADDRESS", "begin at the row of this hexadecimal address (0)"},
    {'n', "number", "COUNT", "print so many rows (all)"},
    {'s', "statistics", "", "print the size instead"},
};

constexpr Command kCommands[] = {
    {"search", "PATTERN FILE...", 2, kAnyNumber, "print the lines of files that match a regular expression",
     "0 when a line matched, 1 when none did, 2 after trouble", 2, kSearchOptions, RunSearch},
    {"compare", "FILE1 FILE2", 2, 2, "print how two text files differ, line by line",
     "0 when the files are the same, 1 when they differ, 2 after trouble", 2, kCompareOptions, RunCompare},
    {"strings", "FILE...", 1, kAnyNumber, "print the strings in binary files, with their offsets",
     "0, or 1 after trouble", 1, kStringsOptions, RunStrings},
    {"lines", "FILE", 1, 1, "print lines of a text file of any size", "0, or 1 after trouble", 1,
     kLinesOptions, RunLines},
    {"hex", "FILE", 1, 1, "print a file of any size in hexadecimal", "0, or 1 after trouble", 1, kHexOptions,
     RunHex},
};

}  // namespace

std::span<const Command> Commands() {
  return kCommands;
}

}  // namespace tarrow
