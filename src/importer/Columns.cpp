#include "importer/Columns.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "base/Windows1252.h"
#include "person/CamposPessoa.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>

namespace vorta::importer {

namespace {

const QString nameField = u"txtDescricao"_s;

bool same(const QString& one, const QString& other) {
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

/// True for the fields of the person that a user fills by hand and the register writes.
bool isFilledByHand(const CampoPessoa& row) {
    return row.grava != Gravacao::Nunca && !QLatin1StringView(row.nome).startsWith(QLatin1StringView("lbl"));
}

/// The columns of a contact, with the fields that each goes to on the person's screen and on those of the roles.
struct ContactColumn {
    QStringView name;
    QStringView field;
    QStringView fieldOfRole;
};
constexpr std::array contactColumns{
    ContactColumn{u"TIPO", u"cboTipoContato", u"cboTipoContato"},
    ContactColumn{u"NOME", u"txtNomeContato", u"txtNomeContato"},
    ContactColumn{u"FONE", u"txtFoneContato", u"txtFoneContato"},
    ContactColumn{u"EMAIL", u"txtEmailContato", u"txtEmailContato"},
    ContactColumn{u"ANIVERSARIO", u"mskDtNascCont", u"mskDtNasc"},
};

const Papel* RoleNamed(const QString& word) {
    const auto found =
        std::ranges::find_if(papeis, [&](const Papel& role) { return same(word, QString::fromUtf8(role.nome)); });
    return found == papeis.end() ? nullptr : &*found;
}

template <typename Items>
auto& itemAt(Items& items, int number) {
    if (items.size() < static_cast<decltype(items.size())>(number))
        items.resize(static_cast<decltype(items.size())>(number));
    return items[static_cast<decltype(items.size())>(number - 1)];
}

} // namespace

QString PersonRow::field(const QString& name) const {
    const auto found = fields.find(name);
    return found == fields.end() ? QString() : found->second;
}

Columns::Target Columns::targetOf(const QString& name, bool& known) {
    known = true;
    if (name == u"-" || same(name, QString::fromUtf16(reasonColumn)) || same(name, QString::fromUtf16(lineColumn)))
        return {};
    for (const CampoPessoa& row : CamposPessoa())
        if (isFilledByHand(row) &&
            (same(name, QString::fromLatin1(row.nome)) || (row.coluna && same(name, row.coluna->toString()))))
            return {Kind::Field, QString::fromLatin1(row.nome), 0, nullptr};
    if (same(name, u"PAPEIS"_s))
        return {Kind::Roles, {}, 0, nullptr};
    static const QRegularExpression branch(u"^RAMO([1-9][0-9]?)$"_s, QRegularExpression::CaseInsensitiveOption);
    if (const auto match = branch.match(name); match.hasMatch())
        return {Kind::Branch, {}, match.captured(1).toInt(), nullptr};
    const std::optional<Target> other = name.contains(u'.') ? targetOfRole(name) : contactOf(name, nullptr);
    known = other.has_value();
    return other.value_or(Target());
}

std::optional<Columns::Target> Columns::contactOf(const QString& name, const Papel* role) {
    static const QRegularExpression contact(u"^CONTATO([1-9][0-9]?)_([A-Z]+)$"_s,
                                            QRegularExpression::CaseInsensitiveOption);
    const auto match = contact.match(name);
    for (const ContactColumn& column : contactColumns)
        if (match.hasMatch() && same(match.captured(2), column.name.toString()))
            return Target{Kind::Contact, (role ? column.fieldOfRole : column.field).toString(),
                          match.captured(1).toInt(), role};
    return std::nullopt;
}

/// A field or a contact of a role. What is entered as a contact is no field, as a save writes its list alone.
std::optional<Columns::Target> Columns::targetOfRole(const QString& name) {
    const Papel* role = RoleNamed(name.section(u'.', 0, 0));
    const QString own = name.section(u'.', 1);
    if (!role || std::ranges::any_of(contactColumns, [&](const ContactColumn& column) {
            return same(own, column.fieldOfRole.toString());
        }))
        return std::nullopt;
    if (own.startsWith(u"CONTATO"_s, Qt::CaseInsensitive))
        return role->contatos ? contactOf(own, role) : std::nullopt;
    return Target{Kind::Field, own, 0, role};
}

Columns::Columns(const QStringList& header, const std::map<QString, QString>& names) {
    QStringList faults;
    for (const QString& told : header) {
        const QString column = told.trimmed();
        const auto renamed = std::ranges::find_if(names, [&](const auto& pair) { return same(pair.first, column); });
        bool known = false;
        const Target target = targetOf(renamed == names.end() ? column : renamed->second, known);
        if (!known)
            faults += u"coluna desconhecida: %1"_s.arg(column.isEmpty() ? u"(sem nome)"_s : column);
        else if (target.kind != Kind::Ignored && std::ranges::find(targets_, target) != targets_.end())
            faults += u"coluna repetida: %1"_s.arg(column);
        if (same(column, QString::fromUtf16(reasonColumn)) || same(column, QString::fromUtf16(lineColumn)))
            own_.push_back(count());
        targets_.push_back(target);
    }
    if (std::ranges::find(targets_, Target{Kind::Field, nameField, 0, nullptr}) == targets_.end())
        faults += u"falta a coluna do nome (NOME_PESS)"_s;
    if (!faults.isEmpty())
        throw RuntimeError(errorNumber::TypeMismatch, u"O cabeçalho não serve: %1"_s.arg(faults.join(u"; "_s)));
}

void Columns::takeRoles(const QString& words, PersonRow& row) {
    static const QRegularExpression between(u"[,;/+|\\s]+"_s);
    for (const QString& word : words.split(between, Qt::SkipEmptyParts)) {
        const Papel* role = RoleNamed(word);
        if (!role)
            throw RuntimeError(errorNumber::TypeMismatch, u"PAPEIS: papel desconhecido: %1"_s.arg(word));
        if (std::ranges::find(row.roles, role, &RoleEntry::role) == row.roles.end())
            row.roles.push_back({.role = role, .fields = {}, .contacts = {}});
    }
}

void Columns::takeOfRole(const Target& target, const QString& text, PersonRow& row) {
    const auto role = std::ranges::find(row.roles, target.role, &RoleEntry::role);
    if (role == row.roles.end())
        throw RuntimeError(errorNumber::TypeMismatch,
                           u"Há dados de %1, que não está em PAPEIS"_s.arg(QString::fromUtf8(target.role->nome)));
    if (target.kind == Kind::Contact)
        itemAt(role->contacts, target.number).push_back({target.field, text});
    else
        role->fields.push_back({target.field, text});
}

PersonRow Columns::row(const QStringList& cells) const {
    if (cells.size() > count())
        throw RuntimeError(errorNumber::TypeMismatch,
                           u"A linha tem %1 campos, o cabeçalho tem %2"_s.arg(cells.size()).arg(count()));
    PersonRow row;
    for (qsizetype at = 0; at < cells.size(); ++at) {
        const QString text = cells[at].trimmed();
        const Target& target = targets_[static_cast<size_t>(at)];
        if (text.isEmpty() || target.kind == Kind::Ignored || target.role)
            continue;
        if (target.kind == Kind::Field)
            row.fields[target.field] = text;
        else if (target.kind == Kind::Contact)
            itemAt(row.contacts, target.number).push_back({target.field, text});
        else if (target.kind == Kind::Branch)
            itemAt(row.branches, target.number) = text;
        else if (target.kind == Kind::Roles)
            takeRoles(text, row);
    }
    // The roles are known only behind the whole row.
    for (qsizetype at = 0; at < cells.size(); ++at) {
        const Target& target = targets_[static_cast<size_t>(at)];
        if (const QString text = cells[at].trimmed(); target.role && !text.isEmpty())
            takeOfRole(target, text, row);
    }
    const auto isEmpty = [](const auto& contact) { return contact.empty(); };
    std::erase_if(row.contacts, isEmpty);
    for (RoleEntry& role : row.roles)
        std::erase_if(role.contacts, isEmpty);
    row.branches.removeAll(QString());
    return row;
}

std::map<QString, QString> ReadNames(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(errorNumber::FileNotFound,
                           u"O arquivo %1 não pode ser lido: %2"_s.arg(path, file.errorString()));
    constexpr qint64 mostBytes = 1 << 20;
    std::map<QString, QString> names;
    const QStringList lines = DecodedText(file.read(mostBytes)).split(u'\n');
    for (qsizetype at = 0; at < lines.size(); ++at) {
        const QString line = lines[at].trimmed();
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        const qsizetype equals = line.lastIndexOf(u'=');
        const QString column = line.left(std::max<qsizetype>(0, equals)).trimmed();
        if (column.isEmpty() || equals == line.size() - 1)
            throw RuntimeError(errorNumber::TypeMismatch,
                               u"%1, linha %2: esperado \"coluna do arquivo = campo\""_s.arg(path).arg(at + 1));
        names[column] = line.sliced(equals + 1).trimmed();
    }
    return names;
}

} // namespace vorta::importer
