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
// threads/without_baton.h). Text is the server's bytes.
class Database {
  public:
    virtual ~Database() = default;

    std::string Host;
    std::string UserName;
    std::string Password;

    // Sets the current database, on a live connection at once. A failure to do so shows at the next
    // statement.
    virtual void DatabaseName(const std::string& name) = 0;

    // Opens a connection with the properties above, in place of the one that this object had;
    // cursors of the old one stay usable. False on failure, with Error and ErrorMessage set; the
    // old connection then stays.
    virtual bool Connect() = 0;
    // Runs a query. On failure sets Error and ErrorMessage and returns nil, whose exception has the
    // same text. Older cursors stay usable. A statement that succeeds but returns no result set
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
    // The server's text form; NULL is the empty string, binary bytes are unchanged.
    std::string StringValue;
    // The same text.
    const std::string& Value() const { return StringValue; }
};

// The rows of a query, read forward once. Must not be read after its Database is destroyed.
class DatabaseCursor {
  public:
    virtual ~DatabaseCursor() = default;

    // True after the last row, and after Close. If the connection fails before the last row, EOF_
    // and whatever else needs the missing row sets the database's Error and raises
    // DatabaseException with the server's message.
    virtual bool EOF_() = 0;
    virtual void MoveNext() = 0;
    virtual int FieldCount() = 0;
    // Name and bytes of a field of the current row, counted from 1, without a copy. The bytes are
    // valid until the next MoveNext or Close. IndexOutOfRangeException outside the row.
    virtual std::string_view fieldName(int n) = 0;
    virtual std::string_view fieldText(int n) = 0;
    // Releases the result and drops the rows left. May be called again.
    virtual void Close() = 0;

    // A field of the current row, by number or by name ignoring case; if there is none nil, with
    // the missing field as its reason.
    Ref<DatabaseCursorField> IdxField(int n);
    Ref<DatabaseCursorField> Field(std::string_view name);
};

}  // namespace bracken
