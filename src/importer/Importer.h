#pragma once

#include "app/Register.h"
#include "importer/Columns.h"
#include "importer/Hands.h"
#include "importer/HeldTransaction.h"
#include "person/frmPessoas.h"
#include "roles/TelaPapel.h"
#include "search/frmPESSOAS_INCL.h"

namespace vorta::importer {

/// A user who enters persons on the register's own screens, without a window: every movement is an event of the
/// screens, a box is a reason for a refusal. All that a person's entry writes is one transaction.
class Importer : public screen::Platform {
  public:
    Importer(const QString& home, const QString& launchString, bool trial, data::StatementTrace trace = {});

    /// Starts the register, runs `work` in front of its start screen and closes it. Raises what `work` raises, and what
    /// kept the register from starting.
    void open(const std::function<void()>& work);
    /// True while another person can be entered.
    bool isReady();

    /// Includes the person with contacts, branches and roles. Gives the reasons for which it was not; nothing of it is
    /// in the base then. Raises a failure that would meet every other person too.
    QStringList enter(const PersonRow& row);

    ContextoExecucao& context() { return register_.context(); }

    screen::Answer messageBox(const screen::Box& box) override;
    void runModal(screen::Screen& screen) override;
    void openAddress(const QString&) override {}
    QString home() const override { return home_; }

  private:
    frmPessoas& person();
    bool isFine() { return reasons_.isEmpty() && !register_.program().hasEnded(); }
    void refuse(const QString& reason);
    void fill(screen::Field& field, const QString& text);
    void typeInto(screen::Field& field, const QString& text);
    void click(screen::Field& button);

    void work(const std::function<void()>& work);
    void requireInclusions();
    void include();
    void fillPerson();
    void fillRest(const screen::Field& field);
    void refuseUnknown(const screen::Field& field, const QString& text);
    void addContacts(screen::Screen& screen, const Contacts& contacts, const QString& whose);
    void addBranch(const QString& branch);
    void link(const RoleEntry& role);
    void abandon();

    void checkEntry(frmPESSOAS_INCL& screen);
    void fillRole(TelaPapel& screen);

    QString home_;
    QString launchString_;
    HeldTransaction transaction_;
    Register register_;
    Hands hands_;
    std::function<void()> work_;
    std::exception_ptr error_;
    bool started_ = false;
    bool stuck_ = false; ///< the screen did not come back to its idle state

    const PersonRow* row_ = nullptr; ///< the person that is being entered
    const RoleEntry* role_ = nullptr;
    bool saved_ = false; ///< a screen has told that it has written
    QStringList reasons_;
};

} // namespace vorta::importer
