/* The texts of the about box and the help, with their macros unexpanded, and the version of
 * the library file. One source for the Windows resources (tavlib6.rc includes this under
 * RC_INVOKED) and for `tvl --about`; C only, so that the resource compiler can read it. */
#ifndef TAVLIB6_PRODUCT_TEXTS_H
#define TAVLIB6_PRODUCT_TEXTS_H

#define TVL_VERSION_MAJOR 6
#define TVL_VERSION_MINOR 5
#define TVL_VERSION_BUILD 0
#define TVL_VERSION_REVISION 64
#define TVL_VERSION_TEXT "6.5.0.64"

#define TVL_APP_NAME "Tavelin"
#define TVL_SYSAPP_NAME "tavlib6"
#define TVL_COMPANY_NAME "Corvane"

/* The resource compiler writes a quote inside a string as two quotes, C as an escape. */
#ifdef RC_INVOKED
#define TVL_QUOTE """"
#else
#define TVL_QUOTE "\""
#endif

/* Text 100: the title of the dialog and the caption of the help message box. */
#define TVL_TEXT_TITLE "%%app%% 6.5"
/* Text 139. */
#define TVL_TEXT_PRODUCT "%%app%% (tm)"
/* Text 140. */
#define TVL_TEXT_PURPOSE                                                    \
    "%%app%% is a program for calculating properties of some substances\r\n" \
    "(including water/steam, some gases and its mixtures)."
/* Text 141: the credits. */
#define TVL_TEXT_CREDITS                                                                  \
    "%%app%% authors:\r\n"                                                                \
    "the %%sysapp%% developers at " TVL_COMPANY_NAME " (water and steam by IAPWS-IF97 and " \
    "its supplementary releases, ideal gases and their mixtures).\r\n"                    \
    "Copyright (C) 2026 " TVL_COMPANY_NAME ". All rights reserved."
/* Text 153. */
#define TVL_TEXT_VERSION "Version: %%version%%"
/* Text 114: shown when the help file is nowhere to be found. */
#define TVL_TEXT_HELP_MISSING                                                                 \
    "Tavelin can't locate its help file (named " TVL_QUOTE "%%sysapp%%.chm" TVL_QUOTE ").\r\n" \
    "Try to reinstall the Tavelin.\r\n"                                                       \
    "If the problem persists, contact the support of your Tavelin distribution."

/* Opened by a click on the icon of the about box. */
#define TVL_PRODUCT_PAGE "https://tavelin.example.com/"

#ifndef RC_INVOKED
#ifdef __cplusplus
#include <string>

namespace tvl {

// Replaces every occurrence of the three macros of the resource texts, for narrow and for
// UTF-16 strings alike (the replacements are plain ASCII).
template <class String>
String expandProductMacros(String text, const String& version) {
    using Char = typename String::value_type;
    const auto widen = [](const char* ascii) {
        String out;
        for (; *ascii != '\0'; ++ascii) out += static_cast<Char>(*ascii);
        return out;
    };
    const String macros[3][2] = {{widen("%%app%%"), widen(TVL_APP_NAME)},
                                 {widen("%%sysapp%%"), widen(TVL_SYSAPP_NAME)},
                                 {widen("%%version%%"), version}};
    for (const auto& macro : macros) {
        for (auto at = text.find(macro[0]); at != String::npos; at = text.find(macro[0], at + macro[1].size()))
            text.replace(at, macro[0].size(), macro[1]);
    }
    return text;
}

}  // namespace tvl

#endif
#endif

#endif
