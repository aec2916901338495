#include "framework/database/database.h"

#include "framework/text/text.h"

namespace bracken {

Ref<DatabaseCursorField> DatabaseCursor::IdxField(int n) {
    if (EOF_() || n < 1 || n > FieldCount()) return nullptr;
    return make<DatabaseCursorField>(fieldName(n), fieldText(n));
}

Ref<DatabaseCursorField> DatabaseCursor::Field(std::string_view name) {
    for (int n = 1; n <= FieldCount(); n++) {
        if (equal(fieldName(n), name)) return IdxField(n);
    }
    return nullptr;
}

}  // namespace bracken
