#pragma once

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
    // The statement gives these rows.
    void answers(const std::string& statement, const Row& columns, const std::vector<Row>& rows);
    // The statement succeeds and has no rows to give: nil for SQLSelect, nothing for SQLExecute.
    void succeeds(const std::string& statement);
    // The statement fails with this text.
    void fails(const std::string& statement, const std::string& message);
    // The statement gives these rows, then breaks off with this text.
    void breaksOff(const std::string& statement, const Row& columns, const std::vector<Row>& rows,
                   const std::string& message);
    // Connect fails with this text, until it is told the empty one.
    void refusesConnect(const std::string& message) { connectRefusal_ = message; }

    void DatabaseName(const std::string& name) override { databaseNames.push_back(name); }
    bool Connect() override;
    Ref<DatabaseCursor> SQLSelect(const std::string& statement) override;
    void SQLExecute(const std::string& statement) override;

    // What was asked, in order: statements of both kinds; logins as "user:password@host"; names set
    // by DatabaseName.
    std::vector<std::string> statements;
    std::vector<std::string> logins;
    std::vector<std::string> databaseNames;
    // Cursors that were given out and not closed by Close.
    int openCursors = 0;
    // Called within each statement and Connect, before the answer, as while the server works.
    std::function<void()> meanwhile;

  private:
    class Cursor;
    struct Answer {
        bool hasRows = false;
        Row columns;
        std::vector<Row> rows;
        std::optional<std::string> failure;
    };

    const Answer* run(const std::string& statement);
    void setOutcome(const std::optional<std::string>& failure);

    std::map<std::string, Answer> answers_;
    std::string connectRefusal_;
};

}  // namespace bracken::test
