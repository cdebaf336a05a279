#pragma once

#include "shared/Papeis.h"

#include <QStringList>
#include <map>
#include <optional>
#include <vector>

/// What the columns of a table of persons mean.
namespace vorta::importer {

/// A field of a screen and the text for it.
struct Entry {
    QString field;
    QString text;
};

/// The contacts of a person or of a role, each as the fields of the block that enters it.
using Contacts = std::vector<std::vector<Entry>>;

/// A role that the person gets, with the fields of its own screen.
struct RoleEntry {
    const Papel* role = nullptr;
    std::vector<Entry> fields;
    Contacts contacts;

    bool needsScreen() const { return !fields.empty() || !contacts.empty(); }
};

/// A person as a row of the table tells it. Only what is filled is there.
struct PersonRow {
    std::map<QString, QString> fields; ///< of the person screen, by their names
    Contacts contacts;
    QStringList branches;
    std::vector<RoleEntry> roles;

    QString field(const QString& name) const;
};

/// The header of a table. A column is named by the field of the screen ("txtDescricao") or by the column of `PESS`
/// ("NOME_PESS"); "CONTATO1_NOME", "RAMO1", "PAPEIS", "CLIENTE.txtLimiCred" and "CLIENTE.CONTATO1_NOME" name the rest,
/// all in any case.
class Columns {
  public:
    /// `names` tells columns by another name: what the file says, and what it means ("-" for nothing). Raises 13 with
    /// all columns that are unknown or named twice, and without a column for the name of the person.
    Columns(const QStringList& header, const std::map<QString, QString>& names);

    /// Raises 13 for a row with more cells than columns, and for words that name no role.
    PersonRow row(const QStringList& cells) const;
    qsizetype count() const { return static_cast<qsizetype>(targets_.size()); }
    /// The places of the columns that an earlier run has added to its list of refused rows.
    const std::vector<qsizetype>& ownColumns() const { return own_; }

  private:
    enum class Kind { Ignored, Field, Contact, Branch, Roles };
    struct Target {
        Kind kind = Kind::Ignored;
        QString field;
        int number = 0;              ///< of the contact or branch, from 1
        const Papel* role = nullptr; ///< whose field or contact it is; none for the person's own

        friend bool operator==(const Target&, const Target&) = default;
    };
    static Target targetOf(const QString& name, bool& known);
    static std::optional<Target> contactOf(const QString& name, const Papel* role);
    static std::optional<Target> targetOfRole(const QString& name);
    static void takeRoles(const QString& words, PersonRow& row);
    static void takeOfRole(const Target& target, const QString& text, PersonRow& row);

    std::vector<Target> targets_;
    std::vector<qsizetype> own_;
};

/// What an earlier run adds in front of each refused row.
inline constexpr const char16_t* reasonColumn = u"MOTIVO";
inline constexpr const char16_t* lineColumn = u"LINHA";

/// Reads a file of such names: "column of the file = field", one a line, "#" for remarks. Raises 53 when it cannot be
/// read and 13 for a line of another form.
std::map<QString, QString> ReadNames(const QString& path);

} // namespace vorta::importer
