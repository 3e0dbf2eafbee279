#pragma once
// SQLite as the layer's rooms use it: statements that are prepared once a connection, and transactions.
// Everything here is called with DatabaseLock() held.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include <windef.h>

struct sqlite3_stmt;

namespace host {

/// One use of a statement. Parameters are bound in order; what is bound must live until the last Step.
/// Without an open data base, and after any error, there are no rows and Run() is false.
class Statement
{
public:
    /// `sql` must be a constant: the prepared statement is kept under its address.
    explicit Statement(const char* sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& Number(int64_t value);
    Statement& Text(std::string_view utf8);
    Statement& Blob(std::string_view bytes);

    /// Moves to the next row; false at the end or after an error.
    bool Step();
    /// Runs to the end; false after an error.
    bool Run();

    /// Columns of the current row. The views end with the next Step.
    int64_t NumberAt(int column) const;
    std::string_view BytesAt(int column) const;

private:
    const char* sql_;
    sqlite3_stmt* statement_;
    int parameters_ = 0;
    bool failed_ = false;
};

/// Finalizes the kept statements. Comes before the connection is closed.
void CloseStatements();

/// The platform's code for the connection's last error.
DWORD DatabaseError();

/// Runs several statements as one. Inner transactions join the outer one, which decides alone.
class Transaction
{
public:
    enum Purpose
    {
        kRead,
        kWrite
    };

    explicit Transaction(Purpose purpose);
    /// Rolls back what was not committed.
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// False when another process kept the data base busy for too long, or none is open.
    explicit operator bool() const { return begun_; }
    /// Makes the changes last; false when they could not be stored, and then nothing has changed.
    bool Commit();

private:
    bool outermost_;
    bool begun_;
};

} // namespace host
