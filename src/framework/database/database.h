#pragma once

#include <memory>
#include <string>

#include "framework/ref.h"

namespace bracken {

class DatabaseCursor;

// One synchronous connection to a database server. All calls come from one thread at a time, holding
// the baton; a call that waits for the server gives the baton up meanwhile (see threads/blocking.h).
// Text is the server's bytes.
class Database {
  public:
    virtual ~Database() = default;

    std::string Host;
    std::string UserName;
    std::string Password;

    // The current database. Setting it on a live connection selects it there; a failure to do so is
    // left to the next statement.
    virtual void DatabaseName(const std::string& name) = 0;

    // Opens the connection with the properties set, closing an older one of this object. False on
    // failure, with Error and ErrorMessage set.
    virtual bool Connect() = 0;
    // Runs a query. On failure sets Error and ErrorMessage and gives nil. Older cursors stay usable.
    virtual Ref<DatabaseCursor> SQLSelect(const std::string& statement) = 0;
    // Runs a statement with no result rows; sets Error and ErrorMessage.
    virtual void SQLExecute(const std::string& statement) = 0;

    // Whether the last operation failed, and the server's or client library's text for it.
    bool Error = false;
    std::string ErrorMessage;
};

// One field of a cursor's current row.
class DatabaseCursorField {
  public:
    DatabaseCursorField(std::string name, std::string value)
        : Name(std::move(name)), StringValue(std::move(value)) {}

    std::string Name;
    // The server's text form; NULL is the empty string; binary bytes as they are.
    std::string StringValue;
};

// The rows of a query, read forward once.
class DatabaseCursor {
  public:
    virtual ~DatabaseCursor() = default;

    // True past the last row. A result that breaks off is never taken for its end: reading on then
    // sets the database's Error and raises DatabaseException with the server's words.
    virtual bool EOF_() = 0;
    virtual void MoveNext() = 0;
    // Fields count from 1; one outside the row is nil.
    virtual Ref<DatabaseCursorField> IdxField(int n) = 0;
    // The same field's bytes without a copy, valid until MoveNext or Close; IndexOutOfRangeException.
    virtual std::string_view fieldText(int n) = 0;
    virtual int FieldCount() = 0;
    // Gives back what the result holds; the rest of the rows is dropped. Closing twice is harmless.
    virtual void Close() = 0;
};

}  // namespace bracken
