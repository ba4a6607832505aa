// Stands in for a benchmark whose rivals were not there when the build was configured.

#include <cstdio>

int main() {
  std::fprintf(stderr, "cannot be measured without the packages " MISSING_PACKAGES
                       "; install them and configure anew: cmake --preset native\n");
  return 1;
}
