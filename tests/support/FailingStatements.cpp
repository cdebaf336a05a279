#include "support/FailingStatements.h"

#include "base/Literals.h"

namespace vorta::test {

struct FailingStatements::State {
    int sent = 0;
    int failing = 0;
    int statementError = 0;
    int commitError = 0;

    void count(const data::Statement& statement) {
        if (++sent == failing)
            throw RuntimeError(statementError, u"falha preparada"_s, 0, {}, statement.text());
    }
};

class FailingAdapter : public data::Adapter {
  public:
    FailingAdapter(std::unique_ptr<data::Adapter> engine, std::shared_ptr<FailingStatements::State> state)
        : engine_(std::move(engine)), state_(std::move(state)) {}

    void open(const QString& connectionString, int timeoutSeconds) override {
        engine_->open(connectionString, timeoutSeconds);
    }
    void close() override { engine_->close(); }
    bool isOpen() const override { return engine_->isOpen(); }
    void begin() override { engine_->begin(); }
    void commit() override {
        if (const int number = std::exchange(state_->commitError, 0))
            throw RuntimeError(number, u"falha preparada"_s);
        engine_->commit();
    }
    void rollback() override { engine_->rollback(); }
    void execute(const data::Statement& statement) override {
        state_->count(statement);
        engine_->execute(statement);
    }
    void query(const data::Statement& statement, data::RowSink& rows) override {
        state_->count(statement);
        engine_->query(statement, rows);
    }

  private:
    std::unique_ptr<data::Adapter> engine_;
    std::shared_ptr<FailingStatements::State> state_;
};

FailingStatements::FailingStatements(data::AdapterFactory engine)
    : engine_(std::move(engine)), state_(std::make_shared<State>()) {}

data::AdapterFactory FailingStatements::factory() {
    return [engine = engine_, state = state_](data::Engine kind) {
        return std::make_unique<FailingAdapter>(engine(kind), state);
    };
}

void FailingStatements::failAt(int n, int errorNumber) {
    state_->sent = 0;
    state_->failing = n;
    state_->statementError = errorNumber;
}

void FailingStatements::failCommit(int errorNumber) {
    state_->commitError = errorNumber;
}

int FailingStatements::sent() const {
    return state_->sent;
}

} // namespace vorta::test
