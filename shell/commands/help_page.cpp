#include "shell/commands/help_page.h"

#include "base/text_format.h"

namespace tarrow {
namespace {

constexpr std::string_view kPlainInUrls =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";

void AppendEscaped(std::string& url, char c) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  auto byte = static_cast<unsigned char>(c);
  if (c == '\\')
    url += '/';
  else if (kPlainInUrls.find(c) != std::string_view::npos)
    url += c;
  else
    url.append({'%', kDigits[byte >> 4], kDigits[byte & 15]});
}

}  // namespace

std::string PlaceInBook(HelpRequest request) {
  switch (request.kind) {
    case HelpRequest::Kind::kContents:
      return {};
    case HelpRequest::Kind::kSearch:
      return "search";
    case HelpRequest::Kind::kTopic:
      break;
  }
  return FormatText("t%u", {request.topic});
}

std::string FileUrl(std::string_view path) {
  bool isShare = path.starts_with("\\\\") || path.starts_with("//");
  std::string url = isShare ? "file:" : path.starts_with('/') ? "file://" : "file:///";
  if (path.size() > 1 && path[1] == ':') {
    url.append(path.substr(0, 2));
    path.remove_prefix(2);
  }
  for (char c : path) AppendEscaped(url, c);
  return url;
}

std::string PageLeadingTo(std::string_view url) {
  return FormatText(
      "<!DOCTYPE html>\n"
      "<html lang=\"en\"><head><meta charset=\"utf-8\"><title>Tarrow Help</title>\n"
      "<meta http-equiv=\"refresh\" content=\"0; url=%s\"></head>\n"
      "<body><p><a href=\"%s\">Tarrow Help</a></p></body></html>\n",
      {url, url});
}

std::string BrowserCommandLine(std::string_view registered, std::string_view path) {
  std::string line(registered);
  std::size_t at = line.find("%1");
  if (at == std::string::npos) return line.append(" \"").append(path).append("\"");
  return line.replace(at, 2, path);
}

}  // namespace tarrow
