#pragma once
// The open world: what the rooms of the layer share with each other.
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>

#include "host/host.h"

struct sqlite3;

namespace host {

/// Guards the data base connection and the statements prepared on it. Recursive, because spooler functions
/// use registry functions.
std::recursive_mutex& DatabaseLock();

/// The connection to host.db of the open world, or null. Hold DatabaseLock() while using it. The connection
/// waits for other processes' locks (5 s), uses write-ahead logging, and has no tables of its own: each room
/// creates its tables with CREATE TABLE IF NOT EXISTS in its own OpenRoom function, called by Open() in this
/// order.
sqlite3* Database();

bool OpenRegistryRoom(std::string* error);
void CloseRegistryRoom();
bool OpenSpoolerRoom(std::string* error);
void CloseSpoolerRoom();
bool OpenShellRoom(std::string* error);
void CloseShellRoom();

/// UTF-8 from UTF-16 and back. Lone surrogates become three-byte sequences and survive the round trip.
std::string Utf8(std::u16string_view text);
std::u16string Utf16(std::string_view text);

/// One ledger entry changes by `amount`; thread safe.
void CountOpen(int64_t Ledger::*entry, int64_t amount);

/// Upper-cases one UTF-16 unit as the platform's file system and registry do for comparison (simple mapping,
/// one unit to one unit).
char16_t UpperCase(char16_t unit);
bool EqualNoCase(std::u16string_view first, std::u16string_view second);

} // namespace host
