// Runs the window tests: against real windows, on the thread that owns them.
#include "framework/wnd.h"

#include <gtest/gtest.h>

#include <exception>

namespace {

// A handler that lets an exception out has failed its test, whatever the test looks at.
void ReportException(std::exception_ptr exception) {
  try {
    std::rethrow_exception(exception);
  } catch (const std::exception& e) {
    ADD_FAILURE() << "a handler let out: " << e.what();
  } catch (...) {
    ADD_FAILURE() << "a handler let out an exception of an unknown type";
  }
}

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  tarrow::CWnd::SetExceptionReporter(ReportException);
  return RUN_ALL_TESTS();
}
