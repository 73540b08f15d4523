/* Identifiers of the library's resources, shared by tavlib6.rc and the dialog code. The error
 * texts take the ids 115 to 127, the code plus 115. */
#ifndef TAVLIB6_RESOURCE_IDS_H
#define TAVLIB6_RESOURCE_IDS_H

#define IDS_TITLE 100
#define IDD_ABOUT 103
#define IDM_ABOUT 103
#define IDI_LIBRARY 106
#define IDS_HELP_MISSING 114
#define IDS_ERROR_FIRST 115
#define IDS_PRODUCT 139
#define IDS_PURPOSE 140
#define IDS_CREDITS 141
#define IDS_VERSION 153

#define IDC_ABOUT_PRODUCT 1011
#define IDC_ABOUT_PURPOSE 1012
#define IDC_ABOUT_CREDITS 1013
#define IDC_ABOUT_ICON 1017
#define IDC_ABOUT_VERSION 1023

#define IDM_HELP 40006

#endif
