#include "framework/database/database.h"

#include "framework/text/text.h"

namespace bracken {

namespace {

Ref<DatabaseCursorField> nilField(const std::string& which) {
    return Ref<DatabaseCursorField>::nilBecause("There is no field " + which + ".");
}

}  // namespace

Ref<DatabaseCursor> Database::nilCursor(const std::optional<std::string>& error,
                                        const std::string& statement) {
    return Ref<DatabaseCursor>::nilBecause(
        error.value_or("The server sent no result for: " + statement));
}

Ref<DatabaseCursorField> DatabaseCursor::IdxField(int n) {
    if (EOF_()) return Ref<DatabaseCursorField>::nilBecause("There is no row.");
    if (n < 1 || n > FieldCount()) return nilField(Str(n));
    return make<DatabaseCursorField>(fieldName(n), fieldText(n));
}

Ref<DatabaseCursorField> DatabaseCursor::Field(std::string_view name) {
    for (int n = 1; n <= FieldCount(); n++) {
        if (equal(fieldName(n), name)) return IdxField(n);
    }
    return nilField(std::string(name));
}

}  // namespace bracken
