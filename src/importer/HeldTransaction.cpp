#include "importer/HeldTransaction.h"

#include "base/Literals.h"

namespace vorta::importer {

namespace {

/// Keys that a trial gives out; far beyond those of a register, as its rows must not meet any.
constexpr qint64 firstTrialKey = 2'000'000'000;

/// A trial ends its transaction after so many persons: each end costs waits for the disk.
constexpr int personsToUndo = 500;

/// How the register asks a generator of Firebird for a key.
bool AsksForKey(const data::Statement& statement) {
    return statement.text().startsWith(u"select gen_id("_s);
}

} // namespace

class HeldTransaction::Holding : public data::Adapter {
  public:
    Holding(HeldTransaction& owner, std::unique_ptr<data::Adapter> engine)
        : owner_(owner), engine_(std::move(engine)) {}
    ~Holding() override {
        if (owner_.adapter_ == this)
            owner_.adapter_ = nullptr;
    }

    void open(const QString& connectionString, int timeoutSeconds) override {
        engine_->open(connectionString, timeoutSeconds);
    }
    void close() override {
        owner_.begun_ = false;
        engine_->close();
    }
    bool isOpen() const override { return engine_->isOpen(); }
    void begin() override {
        if (!owner_.begun_)
            engine_->begin();
        owner_.begun_ = true;
    }
    void commit() override {
        if (!owner_.held_)
            end(!owner_.trial_);
    }
    void rollback() override { end(false); }
    void execute(const data::Statement& statement) override { engine_->execute(statement); }
    void query(const data::Statement& statement, data::RowSink& rows) override {
        if (!owner_.trial_ || !AsksForKey(statement))
            return engine_->query(statement, rows);
        rows.columns({u"GEN_ID"_s});
        rows.beginRow();
        rows.integer(firstTrialKey + ++trialKeys_);
        rows.endRow();
    }

    void end(bool kept) {
        kept ? engine_->commit() : engine_->rollback();
        owner_.begun_ = false;
    }

  private:
    HeldTransaction& owner_;
    std::unique_ptr<data::Adapter> engine_;
    qint64 trialKeys_ = 0;
};

std::unique_ptr<data::Adapter> HeldTransaction::between(std::unique_ptr<data::Adapter> adapter) {
    auto holding = std::make_unique<Holding>(*this, std::move(adapter));
    adapter_ = holding.get();
    held_ = begun_ = false;
    return holding;
}

void HeldTransaction::keep() {
    held_ = false;
    if (trial_ && ++kept_ % personsToUndo != 0)
        return;
    end(!trial_);
}

void HeldTransaction::undo() {
    end(false);
}

void HeldTransaction::end(bool kept) {
    held_ = false;
    if (adapter_ && begun_)
        adapter_->end(kept);
}

} // namespace vorta::importer
