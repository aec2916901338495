#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "framework/ref.h"

namespace bracken {

class DatabaseCursor;

// One synchronous connection to a database server. All calls come from one thread at a time,
// holding the baton; a call that waits for the server gives the baton up meanwhile (see
// threads/blocking.h). Text is the server's bytes.
class Database {
  public:
    virtual ~Database() = default;

    std::string Host;
    std::string UserName;
    std::string Password;

    // The current database. Setting it on a live connection selects it there; a failure to do so is
    // left to the next statement.
    virtual void DatabaseName(const std::string& name) = 0;

    // Opens a connection with the properties set, in place of the one that this object had; cursors
    // of the old one stay usable. False on failure, with Error and ErrorMessage set; the old one
    // then stays.
    virtual bool Connect() = 0;
    // Runs a query. On failure sets Error and ErrorMessage and gives nil, whose exception reads
    // the same text. Older cursors stay usable. A statement that succeeds but has no rows to give,
    // gives nil too.
    virtual Ref<DatabaseCursor> SQLSelect(const std::string& statement) = 0;
    // Runs a statement with no result rows; sets Error and ErrorMessage.
    virtual void SQLExecute(const std::string& statement) = 0;

    // Whether the last operation failed, and the server's or client library's text for it.
    bool Error = false;
    std::string ErrorMessage;

  protected:
    // What SQLSelect returns for a statement that failed with `error`, or succeeded with no rows.
    static Ref<DatabaseCursor> nilCursor(const std::optional<std::string>& error,
                                         const std::string& statement);
};

// One field of a cursor's row, copied from it.
class DatabaseCursorField {
  public:
    DatabaseCursorField(std::string_view name, std::string_view value)
        : Name(name), StringValue(value) {}

    std::string Name;
    // The server's text form; NULL is the empty string; binary bytes as they are.
    std::string StringValue;
    // The field as a value of any type; its text is the server's too.
    const std::string& Value() const { return StringValue; }
};

// The rows of a query, read forward once. Must not be read once its Database is gone.
class DatabaseCursor {
  public:
    virtual ~DatabaseCursor() = default;

    // True past the last row, and after Close. A result that breaks off is never taken for its end:
    // EOF_, and whatever else asks for the row that is missing, sets the database's Error and
    // raises DatabaseException with the server's words.
    virtual bool EOF_() = 0;
    virtual void MoveNext() = 0;
    virtual int FieldCount() = 0;
    // Fields count from 1. The name and the bytes of the current row's field without a copy, the
    // bytes valid until the next MoveNext or Close; IndexOutOfRangeException outside the row.
    virtual std::string_view fieldName(int n) = 0;
    virtual std::string_view fieldText(int n) = 0;
    // Gives back what the result holds; the rest of the rows is dropped. Closing twice is harmless.
    virtual void Close() = 0;

    // A field of the current row, by number or by name without regard to case; nil, which says
    // what is missing, if there is none.
    Ref<DatabaseCursorField> IdxField(int n);
    Ref<DatabaseCursorField> Field(std::string_view name);
};

}  // namespace bracken
