/* Numbers of the resources: read by the resource compiler and by the windows that use them. Controls are
 * numbered per dialog: 20x edit fields, 22x texts, 23x and 24x lists, 25x buttons, 26x and 27x boxes. */
#pragma once

#define IDI_TARROW 1
#define IDI_EDIT 2
#define IDI_LOG 3
#define IDI_VIEW 4

#define IDB_TOOLS_MONO 50
#define IDB_TOOLS_COLOR 51

#define IDD_GOTO_LINE 102
#define IDD_GOTO_ADDRESS 103
#define IDD_REPLACE 104
#define IDD_GLOBAL_SEARCH 105
#define IDD_COMPARE_FILES 106
#define IDD_EXTRACT_STRINGS 107
#define IDD_PROGRESS 108
#define IDD_SELECT_PROJECT 109
#define IDD_CONFIGURE_PROJECT 110
#define IDD_BUILD_TARGET 111
#define IDD_RUN 112
#define IDD_GLOBAL_SETTINGS 113
#define IDD_KEY_BINDINGS 114
#define IDD_PAGE_SETUP 115
#define IDD_PRINTING 116
#define IDD_ABOUT 117
#define IDD_SYSTEM_METRICS 118

/* Shared by every dialog that has them. */
#ifndef IDC_STATIC
#define IDC_STATIC (-1)
#endif
#define IDC_HELP_BUTTON 259
#define IDC_WORKING_DIRECTORY 221

/* Goto Line, Goto Address */
#define IDC_GOTO 201

/* Replace: the numbers that the dialog of the system expects, and one of our own. */
#define IDC_FIND_WHAT 1152
#define IDC_REPLACE_WITH 1153
#define IDC_WHOLE_WORD 1040
#define IDC_MATCH_CASE 1041
#define IDC_SELECTION_ONLY 1042
#define IDC_REPLACE 1024
#define IDC_REPLACE_ALL 1025
#define IDC_FIND_HELP 1038

/* Global Search */
#define IDC_SEARCH_FOR 201
#define IDC_IN_FILES 202
#define IDC_IN_DIRECTORY 203
#define IDC_SEARCH_MATCH_CASE 261
#define IDC_SEARCH_WHOLE_WORD 262
#define IDC_SEARCH_LIST_LINES 263
#define IDC_SEARCH_DEFAULTS 251
#define IDC_SEARCH_BROWSE 252

/* Compare Files */
#define IDC_FIRST_FILE 201
#define IDC_SECOND_FILE 202
#define IDC_COMPARE_BROWSE 251

/* Extract Strings */
#define IDC_BINARY_FILES 201
#define IDC_FILTER_PATTERN 202
#define IDC_EXTRACT_BROWSE 251

/* Progress box */
#define IDC_PROGRESS_TEXT 222
#define IDC_PROGRESS_WORK 223
#define IDC_PROGRESS_COUNTS 224
#define IDC_PROGRESS_BAR 225

/* Select Project Directory */
#define IDC_PROJECT_PATH 241
#define IDC_EXIT_PROJECT 251

/* Configure Project */
#define IDC_CONFIGURE_PATH 222
#define IDC_TARGET 201
#define IDC_TEST_ARGUMENTS 202
#define IDC_DEBUG_BUILD 261
#define IDC_ENVIRONMENT 241
#define IDC_OPTIONS 231
#define IDC_OPTION_NAME 203
#define IDC_OPTION_SETTING 204
#define IDC_SET_OPTION 251

/* Build, Run */
#define IDC_BUILD_TARGET 201
#define IDC_COMMAND_LINE 201
#define IDC_RUN_MINIMIZED 261
#define IDC_RUN_BROWSE 251

/* Global Settings */
#define IDC_TAB_SIZE 201
#define IDC_SHIFT_WIDTH 202
#define IDC_SCREEN_FONT 251
#define IDC_PRINTER_FONT 252
#define IDC_PAGE_SETUP 253
#define IDC_KEY_BINDINGS 254
#define IDC_SAVE_SETTINGS 261
#define IDC_SAVE_WINDOWS 262
#define IDC_SHOW_STATUS_BAR 263
#define IDC_SHOW_CLOCK 264
#define IDC_SHOW_TOOL_BAR 265
#define IDC_SHOW_HORIZONTAL_SCROLL 266
#define IDC_SHOW_VERTICAL_SCROLL 267
#define IDC_CONFIRM_UPDATING 268
#define IDC_CREATE_BACKUPS 269
#define IDC_SPACE_DELIMITS_WORDS 270
#define IDC_VISIBLE_ALERTS 271
#define IDC_ENABLE_PROJECT 272
#define IDC_MAINTAIN_INDENTATION 273
#define IDC_BLOCK_INDENT 274

/* Key Bindings */
#define IDC_COMMANDS 231
#define IDC_KEYS 241
#define IDC_SET_KEY 251
#define IDC_CONTROL 261
#define IDC_SHIFT 262
#define IDC_ALT 263

/* Page Setup */
#define IDC_PAGE_HEADER 201
#define IDC_PAGE_FOOTER 202
#define IDC_MARGIN_LEFT 203
#define IDC_MARGIN_RIGHT 204
#define IDC_MARGIN_TOP 205
#define IDC_MARGIN_BOTTOM 206
#define IDC_MARGINS 222

/* Printing */
#define IDC_PRINT_DOCUMENT 222
#define IDC_PRINT_PRINTER 223
#define IDC_PRINT_PORT 224
#define IDC_PRINT_PAGE 225

/* About, System Metrics */
#define IDC_ABOUT_TITLE 222
#define IDC_ABOUT_RELEASE 223
#define IDC_METRICS 231
