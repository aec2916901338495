#include "tests/support/fake_database.h"

#include <gtest/gtest.h>

namespace bracken::test {

class FakeDatabase::Cursor : public DatabaseCursor {
  public:
    Cursor(FakeDatabase& database, Answer answer)
        : database_(database), answer_(std::move(answer)) {
        database_.openCursors++;
    }

    bool EOF_() override {
        if (closed_) return true;
        if (row_ < answer_.rows.size()) return false;
        if (!answer_.failure) return true;
        database_.setOutcome(answer_.failure);
        throw DatabaseException(*answer_.failure);
    }
    void MoveNext() override { row_++; }
    int FieldCount() override { return static_cast<int>(answer_.columns.size()); }
    std::string_view fieldName(int n) override { return checked(answer_.columns, n); }
    std::string_view fieldText(int n) override {
        if (EOF_()) throw IndexOutOfRangeException();
        return checked(answer_.rows[row_], n);
    }
    void Close() override {
        if (!closed_) database_.openCursors--;
        closed_ = true;
    }

  private:
    static std::string_view checked(const Row& row, int n) {
        if (n < 1 || n > static_cast<int>(row.size())) throw IndexOutOfRangeException();
        return row[static_cast<size_t>(n) - 1];
    }

    FakeDatabase& database_;
    Answer answer_;
    size_t row_ = 0;
    bool closed_ = false;
};

void FakeDatabase::answers(const std::string& statement, const Row& columns,
                           const std::vector<Row>& rows) {
    answers_[statement] = {true, columns, rows, std::nullopt};
}

void FakeDatabase::succeeds(const std::string& statement) {
    answers_[statement] = {};
}

void FakeDatabase::fails(const std::string& statement, const std::string& message) {
    answers_[statement] = {false, {}, {}, message};
}

void FakeDatabase::breaksOff(const std::string& statement, const Row& columns,
                             const std::vector<Row>& rows, const std::string& message) {
    answers_[statement] = {true, columns, rows, message};
}

bool FakeDatabase::Connect() {
    logins.push_back(UserName + ":" + Password + "@" + Host);
    if (meanwhile) meanwhile();
    setOutcome(connectRefusal_.empty() ? std::nullopt : std::optional(connectRefusal_));
    return !Error;
}

Ref<DatabaseCursor> FakeDatabase::SQLSelect(const std::string& statement) {
    const Answer* answer = run(statement);
    if (answer == nullptr || !answer->hasRows)
        return nilCursor(Error ? std::optional(ErrorMessage) : std::nullopt, statement);
    return Ref<DatabaseCursor>(std::make_shared<Cursor>(*this, *answer));
}

void FakeDatabase::SQLExecute(const std::string& statement) {
    run(statement);
}

const FakeDatabase::Answer* FakeDatabase::run(const std::string& statement) {
    statements.push_back(statement);
    if (meanwhile) meanwhile();
    auto found = answers_.find(statement);
    if (found == answers_.end()) {
        ADD_FAILURE() << "unexpected statement: " << statement;
        setOutcome("unexpected statement");
        return nullptr;
    }
    setOutcome(found->second.hasRows ? std::nullopt : found->second.failure);
    return &found->second;
}

void FakeDatabase::setOutcome(const std::optional<std::string>& failure) {
    Error = failure.has_value();
    ErrorMessage = failure.value_or("");
}

}  // namespace bracken::test
