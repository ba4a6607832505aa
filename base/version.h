// The version of the program, and the only place where it stands: the resources, the About box, the help
// book, `tarrowc --version` and the names of the released archives take it from here. Only macros, for the
// resource compiler reads this file too.
#pragma once

#define TARROW_MAJOR 1
#define TARROW_MINOR 0

#define TARROW_AS_TEXT(number) TARROW_AS_TEXT_OF_VALUE(number)
#define TARROW_AS_TEXT_OF_VALUE(value) #value
#define TARROW_VERSION TARROW_AS_TEXT(TARROW_MAJOR) "." TARROW_AS_TEXT(TARROW_MINOR)
