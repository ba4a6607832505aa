#include "print/printer_name.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

TEST(PrinterName, HasThreeParts) {
  EXPECT_EQ(ParsePrinterName("Laser,winspool,Ne00:"), (PrinterName{"Laser", "winspool", "Ne00:"}));
  EXPECT_EQ(ParsePrinterName(" My Laser , winspool , LPT1: "),
            (PrinterName{"My Laser", "winspool", "LPT1:"}));
  EXPECT_EQ(ParsePrinterName("a,b,c,d"), (PrinterName{"a", "b", "c"}));
}

TEST(PrinterName, IsNoneWhenAPartIsMissing) {
  for (const char* value :
       {"", ",", "Laser", "Laser,", "Laser,winspool", "Laser,winspool,", "Laser,,LPT1:", ",a,b", " , , "})
    EXPECT_FALSE(ParsePrinterName(value)) << value;
}

TEST(PrinterName, StandsForNoPrinterAsItIs) {
  EXPECT_EQ(PrinterName(), (PrinterName{"Default", "?", "?"}));
}

}  // namespace
}  // namespace tarrow
