#include "host/registry/database.h"

#include <unordered_map>

#include <sqlite3.h>
#include <winerror.h>

#include "host/kernel/world.h"

namespace host {
namespace {

// Statements that are not in use at the moment, by the address of their text.
std::unordered_map<const char*, sqlite3_stmt*>& IdleStatements()
{
    static std::unordered_map<const char*, sqlite3_stmt*> statements;
    return statements;
}

sqlite3_stmt* TakeStatement(const char* sql)
{
    sqlite3_stmt*& idle = IdleStatements()[sql];
    sqlite3_stmt* statement = idle;
    idle = nullptr;
    if (!statement && Database())
        sqlite3_prepare_v3(Database(), sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    return statement;
}

int transactionDepth = 0;

} // namespace

Statement::Statement(const char* sql) : sql_(sql), statement_(TakeStatement(sql)), failed_(!statement_) {}

Statement::~Statement()
{
    if (!statement_)
        return;
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
    sqlite3_stmt*& idle = IdleStatements()[sql_];
    if (idle)
        sqlite3_finalize(statement_);
    else
        idle = statement_;
}

Statement& Statement::Number(int64_t value)
{
    if (statement_ && sqlite3_bind_int64(statement_, ++parameters_, value) != SQLITE_OK)
        failed_ = true;
    return *this;
}

Statement& Statement::Text(std::string_view utf8)
{
    // A null pointer would bind NULL instead of an empty text.
    const char* text = utf8.data() ? utf8.data() : "";
    if (statement_ && sqlite3_bind_text64(statement_, ++parameters_, text, utf8.size(), SQLITE_STATIC,
                                          SQLITE_UTF8) != SQLITE_OK)
        failed_ = true;
    return *this;
}

Statement& Statement::Blob(std::string_view bytes)
{
    const char* data = bytes.data() ? bytes.data() : "";
    if (statement_ &&
        sqlite3_bind_blob64(statement_, ++parameters_, data, bytes.size(), SQLITE_STATIC) != SQLITE_OK)
        failed_ = true;
    return *this;
}

bool Statement::Step()
{
    if (failed_)
        return false;
    int result = sqlite3_step(statement_);
    failed_ = result != SQLITE_ROW && result != SQLITE_DONE;
    return result == SQLITE_ROW;
}

bool Statement::Run()
{
    while (Step()) {
    }
    return !failed_;
}

int64_t Statement::NumberAt(int column) const
{
    return sqlite3_column_int64(statement_, column);
}

std::string_view Statement::BytesAt(int column) const
{
    const void* bytes = sqlite3_column_blob(statement_, column);
    return {static_cast<const char*>(bytes), static_cast<size_t>(sqlite3_column_bytes(statement_, column))};
}

void CloseStatements()
{
    for (auto& [sql, statement] : IdleStatements())
        sqlite3_finalize(statement);
    IdleStatements().clear();
}

DWORD DatabaseError()
{
    if (!Database())
        return ERROR_INTERNAL_ERROR;
    switch (sqlite3_errcode(Database())) {
    case SQLITE_FULL:
        return ERROR_DISK_FULL;
    case SQLITE_NOMEM:
    case SQLITE_TOOBIG:
        return ERROR_NOT_ENOUGH_MEMORY;
    case SQLITE_READONLY:
        return ERROR_WRITE_PROTECT;
    default:
        return ERROR_INTERNAL_ERROR;
    }
}

Transaction::Transaction(Purpose purpose) : outermost_(transactionDepth == 0)
{
    // A reader that turned into a writer half way could be refused at once, so writers say so first.
    begun_ = !outermost_ || Statement(purpose == kRead ? "BEGIN" : "BEGIN IMMEDIATE").Run();
    if (begun_)
        ++transactionDepth;
}

Transaction::~Transaction()
{
    if (!begun_)
        return;
    --transactionDepth;
    if (outermost_)
        Statement("ROLLBACK").Run();
}

bool Transaction::Commit()
{
    if (!begun_ || !outermost_)
        return begun_;
    if (!Statement("COMMIT").Run())
        return false;
    --transactionDepth;
    begun_ = false;
    return true;
}

} // namespace host
