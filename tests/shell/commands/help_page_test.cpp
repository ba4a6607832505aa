#include "shell/commands/help_page.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

using Kind = HelpRequest::Kind;

TEST(HelpPage, NamesThePlaceInTheBook) {
  EXPECT_EQ(PlaceInBook({Kind::kContents}), "");
  EXPECT_EQ(PlaceInBook({Kind::kSearch}), "search");
  EXPECT_EQ(PlaceInBook({Kind::kTopic, 40}), "t40");
}

TEST(HelpPage, AddressesOfFiles) {
  struct {
    const char *path, *url;
  } const cases[] = {
      {"C:\\Tools\\tarrow.html", "file:///C:/Tools/tarrow.html"},
      {"c:\\Program Files (x86)\\a&b\\t#1.html", "file:///c:/Program%20Files%20%28x86%29/a%26b/t%231.html"},
      {"\\\\server\\share\\tarrow.html", "file://server/share/tarrow.html"},
      {"/usr/share/tarrow.html", "file:///usr/share/tarrow.html"},
      {"c:\\gr\xC3\xBC\xC3\x9F\\50%\\\"x'<y>.html", "file:///c:/gr%C3%BC%C3%9F/50%25/%22x%27%3Cy%3E.html"},
  };
  for (const auto& c : cases) EXPECT_EQ(FileUrl(c.path), c.url) << c.path;
}

TEST(HelpPage, SendsTheBrowserOnAndShowsALink) {
  std::string page = PageLeadingTo("file:///c:/tarrow.html#t1");
  EXPECT_NE(page.find("content=\"0; url=file:///c:/tarrow.html#t1\""), std::string::npos) << page;
  EXPECT_NE(page.find("<a href=\"file:///c:/tarrow.html#t1\">"), std::string::npos) << page;
}

TEST(HelpPage, PutsThePageIntoTheBrowsersCommandLine) {
  EXPECT_EQ(BrowserCommandLine("\"c:\\a b\\fox.exe\" -url \"%1\"", "c:\\x y.html"),
            "\"c:\\a b\\fox.exe\" -url \"c:\\x y.html\"");
  EXPECT_EQ(BrowserCommandLine("chrome.exe --single-argument %1", "c:\\x y.html"),
            "chrome.exe --single-argument c:\\x y.html");
  EXPECT_EQ(BrowserCommandLine("\"c:\\old.exe\"", "c:\\x y.html"), "\"c:\\old.exe\" \"c:\\x y.html\"");
  EXPECT_EQ(BrowserCommandLine("b.exe %1", "c:\\100%1.html"), "b.exe c:\\100%1.html");
}

}  // namespace
}  // namespace tarrow
