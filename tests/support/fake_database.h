#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "framework/database/database.h"

namespace bracken::test {

using Row = std::vector<std::string>;

// A server that knows the answers it has been told. Statements are matched as a whole, byte by
// byte; one that nobody told it fails the test. Answers stay until they are told anew.
class FakeDatabase : public Database {
  public:
    // The statement gives these rows, and then breaks off with the text, if there is one.
    void answers(const std::string& statement, const Row& columns, const std::vector<Row>& rows,
                 const std::string& message = "") {
        answers_[statement] = {true, columns, rows, message};
    }
    // The statement succeeds and has no rows to give: nil for SQLSelect, nothing for SQLExecute.
    void succeeds(const std::string& statement) { answers_[statement] = {}; }
    // The statement fails with this text.
    void fails(const std::string& statement, const std::string& message) {
        answers_[statement] = {false, {}, {}, message};
    }

    void DatabaseName(const std::string& name) override { databaseNames.push_back(name); }
    bool Connect() override {
        logins.push_back(UserName + ":" + Password + "@" + Host);
        if (meanwhile) meanwhile();
        setOutcome(connectRefusal);
        return !Error;
    }
    Ref<DatabaseCursor> SQLSelect(const std::string& statement) override {
        const Answer answer = run(statement);
        if (answer.hasRows) return make<Cursor>(*this, answer);
        return nilCursor(Error ? std::optional(ErrorMessage) : std::nullopt, statement);
    }
    void SQLExecute(const std::string& statement) override { run(statement); }

    // Connect fails with this text, if there is one.
    std::string connectRefusal;
    // What was asked, in order: statements of both kinds; logins as "user:password@host"; names set
    // by DatabaseName.
    std::vector<std::string> statements, logins, databaseNames;
    // Cursors that were given out and not closed by Close.
    int openCursors = 0;
    // Called within each statement and Connect, before the answer, as while the server works.
    std::function<void()> meanwhile;

  private:
    struct Answer {
        bool hasRows = false;
        Row columns;
        std::vector<Row> rows;
        // Of the failure, at the end of the rows if there are any; "" if it succeeds.
        std::string message;
    };

    class Cursor : public DatabaseCursor {
      public:
        Cursor(FakeDatabase& database, const Answer& answer)
            : database_(database), answer_(answer) {
            database_.openCursors++;
        }
        bool EOF_() override {
            if (closed_) return true;
            if (row_ < answer_.rows.size()) return false;
            if (answer_.message.empty()) return true;
            database_.setOutcome(answer_.message);
            throw DatabaseException(answer_.message);
        }
        void MoveNext() override { row_++; }
        int FieldCount() override { return static_cast<int>(answer_.columns.size()); }
        std::string_view fieldName(int n) override {
            return answer_.columns.at(static_cast<size_t>(n) - 1);
        }
        std::string_view fieldText(int n) override {
            return answer_.rows.at(row_).at(static_cast<size_t>(n) - 1);
        }
        void Close() override {
            if (!closed_) database_.openCursors--;
            closed_ = true;
        }

      private:
        FakeDatabase& database_;
        const Answer answer_;
        size_t row_ = 0;
        bool closed_ = false;
    };

    Answer run(const std::string& statement) {
        statements.push_back(statement);
        if (meanwhile) meanwhile();
        EXPECT_TRUE(answers_.contains(statement)) << "unexpected statement: " << statement;
        const Answer answer = answers_[statement];
        setOutcome(answer.hasRows ? "" : answer.message);
        return answer;
    }
    void setOutcome(const std::string& failure) {
        Error = !failure.empty();
        ErrorMessage = failure;
    }

    std::map<std::string, Answer> answers_;
};

}  // namespace bracken::test
