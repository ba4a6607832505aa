// The help book as a browser opens it: the address of a place in it, and how a browser is told.
//
// The system hands a browser a file, never a place in it: of an address with a "#" it takes the file and
// drops the rest. So a place is reached through a small page that sends the browser on.
#pragma once

#include <string>
#include <string_view>

namespace tarrow {

// What of the help is asked for.
struct HelpRequest {
  enum class Kind { kContents, kSearch, kTopic };

  Kind kind = Kind::kContents;
  unsigned topic = 0;  // for kTopic
};

// The place in the book: what stands behind the "#" of an address; empty for the contents.
[[nodiscard]] std::string PlaceInBook(HelpRequest request);

// The address of a file by its full path: of a drive, of a network share, or of a system whose paths begin
// with a slash.
[[nodiscard]] std::string FileUrl(std::string_view path);

// A page that sends a browser on to `url`; one that does not go by itself shows a link.
[[nodiscard]] std::string PageLeadingTo(std::string_view url);

// The command line that opens `path`, from the one that a browser is registered with: its "%1" stands for
// what is opened. Without one the path goes to the end, in quotes.
[[nodiscard]] std::string BrowserCommandLine(std::string_view registered, std::string_view path);

}  // namespace tarrow
