#pragma once
// The mail clients of this desktop, presented as the registry tree the
// program reads: under Software\Clients\Mail one subkey per application that
// handles message/rfc822, named by its desktop-file id, with its name as the
// unnamed value and, as shell\open\command, the quoted path of its desktop
// entry. Starting that entry with a message's path runs the client the way
// the desktop itself would (its Exec line, field codes, terminal, sandbox).
// The base key's unnamed value is the id of the desktop's default client.
//
// The command holds no ".exe", so the opening of a message keeps the whole
// path as the program and hands it the message's path alone. Two paths still
// go wrong there, silently like every failed start: an entry whose path holds
// ".exe" (org.exeter.desktop) is cut behind it, and one whose path holds a
// %...% pair loses that part.
//
// GIO finds the entries: data-dir order, mimeapps.list, Hidden, NoDisplay
// and TryExec are its rules, not ours.

#include <memory>

#include "platform/Registry.h"

std::unique_ptr<TRegistry> CreateDesktopRegistry();
