#pragma once

#include "app/Register.h"
#include "person/frmPessoas.h"
#include "roles/TelaPapel.h"

#include <QStringList>

namespace vorta::test {

/// What a user of the office does with the register: every movement is an event of the screens. Persons have one form,
/// so that a half save shows: a mark in `OBSE_PESS_0003` that begins the names of three contacts, and two branches of
/// activity that `OBSE_PESS_0001` and `OBSE_PESS_0002` name. A box that tells of anything but a save is an error.
class OfficeWork : public screen::Platform {
  public:
    OfficeWork(const QString& home, const std::function<void(const QString&)>& tell);

    /// Dies in front of the n-th statement from now, as a crash would.
    void dieAt(int statement) { toDeath_ = statement; }
    /// The same for the n-th statement of the next save of a role.
    void dieInRoleAt(int statement) { toDeathInRole_ = statement; }

    bool hasEnded() { return register_.program().hasEnded(); }

    /// Starts the register, runs the day in front of its start screen and gives true when it ended without an error.
    bool spend(const std::function<void()>& day);

    /// Gives the new person's key, empty when it was not saved.
    QString include(const QString& name, const QString& mark, quint64 document);
    /// False when the person was not saved.
    bool alter(const QString& id, const QString& mark);
    /// Includes the person's role or alters it, with three contacts that begin with the mark where the role has any.
    /// False when it was not saved.
    bool saveRole(const QString& id, const Papel& role, const QString& mark);
    /// Finds a person by the search screen and loads it: its key, its mark, and the numbers of its contacts and
    /// branches; empty when nobody is found.
    QStringList find(const QString& name);

    screen::Answer messageBox(const screen::Box& box) override;
    void runModal(screen::Screen& screen) override;
    void openAddress(const QString&) override {}
    QString home() const override { return home_; }

  private:
    void live();
    void search(screen::Screen& screen);
    void workOn(TelaPapel& screen);
    void pick(screen::ListField& list, const QString& item);
    void fillLists(const QString& mark);
    bool save();
    frmPessoas& person();

    QString home_;
    std::function<void(const QString&)> tell_;
    Register register_;
    std::function<void()> day_;
    QString wanted_;
    QString mark_; ///< of the role that is being saved
    QStringList branches_;
    int saved_ = 0;
    int toDeath_ = 0;
    int toDeathInRole_ = 0;
    bool flawless_ = true;
};

} // namespace vorta::test
