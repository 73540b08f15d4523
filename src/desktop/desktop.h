// Desktop services: the about box and the help file, the library's only user interface. On
// Windows they are dialogs and the HTML Help viewer (windows/); elsewhere they show nothing.
// No calculation depends on them.
#ifndef TAVLIB6_DESKTOP_H
#define TAVLIB6_DESKTOP_H

namespace tvl::desktop {

// Runs the modal about box, owned by parent, or by the active window when parent is no window.
void showAbout(void* parent);

// Opens tavlib6.chm in the HTML Help viewer, or tells the user in a message box that the file
// is nowhere to be found. A missing file is no failure for the caller.
void showHelp(void* parent);

// The module handle of the library, which its resources (dialogs, texts, version) are read
// from; null where there is none.
void* libraryModule();

}  // namespace tvl::desktop

#endif
