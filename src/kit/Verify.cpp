#include "kit/Verify.h"

#include "firebird/Services.h"
#include "kit/Bases.h"
#include "kit/FaultWords.h"
#include "kit/Loader.h"

#include <ibase.h>
#include <iterator>

namespace vorta::kit {

namespace {

/// What a column of the register refers to.
struct Reference {
    const char* table;
    const char* column;
    const char* parent;
    const char* key;
    /// True where a row without its parent means nothing; elsewhere 0 or a null stands for "none".
    bool needed = true;
    /// The parent's row must be one of this same person.
    bool own = false;
};

constexpr Reference references[]{
    {"PESS_CONT", "IDPESS", "PESS", "IDPESS"},
    {"PESS_ATIV", "IDPESS", "PESS", "IDPESS"},
    {"PESS_ATIV", "IDATIV", "ATIV", "IDATIV"},
    {"CLIE", "IDPESS", "PESS", "IDPESS"},
    {"FORN", "IDPESS", "PESS", "IDPESS"},
    {"TRPT", "IDPESS", "PESS", "IDPESS"},
    {"MOTO", "IDPESS", "PESS", "IDPESS"},
    {"VEND", "IDPESS", "PESS", "IDPESS"},
    {"ARQT", "IDPESS", "PESS", "IDPESS"},
    {"DECO", "IDPESS", "PESS", "IDPESS"},
    {"CLIE_CONT", "IDCLIE", "CLIE", "IDCLIE"},
    {"FORN_CONT", "IDFORN", "FORN", "IDFORN"},
    {"TRPT_CONT", "IDTRPT", "TRPT", "IDTRPT"},
    {"ARQT_CONT", "IDARQT", "ARQT", "IDARQT"},
    {"DECO_CONT", "IDDECO", "DECO", "IDDECO"},
    {"PESS", "IDCLIE", "CLIE", "IDCLIE", false, true},
    {"PESS", "IDFORN", "FORN", "IDFORN", false, true},
    {"PESS", "IDTRPT", "TRPT", "IDTRPT", false, true},
    {"PESS", "IDMOTO", "MOTO", "IDMOTO", false, true},
    {"PESS", "IDARQT", "ARQT", "IDARQT", false, true},
    {"PESS", "IDDECO", "DECO", "IDDECO", false, true},
    // The link of a salesperson and the default salesperson of a person share this column.
    {"PESS", "IDVEND", "VEND", "IDVEND", false},
    {"PESS", "IDPESS_TRPT", "TRPT", "IDTRPT", false},
    {"PESS", "IDTIPO_CLIE", "TIPO_CLIE", "IDTIPO_CLIE", false},
};

QString l1(const char* text) {
    return QString::fromLatin1(text);
}

/// The rows whose parent is not there.
QString orphans(const Reference& each) {
    const QString same = each.own ? u" AND P.IDPESS = C.IDPESS"_s : QString();
    const QString some = each.needed ? u"C.%1 IS NULL OR "_s.arg(l1(each.column)) : QString();
    const QString none = each.needed ? QString() : u"C.%1 <> 0 AND "_s.arg(l1(each.column));
    return u"FROM %1 C WHERE %2%3NOT EXISTS (SELECT 1 FROM %4 P WHERE P.%5 = C.%6%7)"_s.arg(
        l1(each.table), some, none, l1(each.parent), l1(each.key), l1(each.column), same);
}

class Verifier {
  public:
    Verifier(const NamedBase& base, const Progress& progress)
        : base_(base), connection_(firebird::ReadConnectionText(base.connection)), progress_(progress) {}

    std::vector<Finding> run() {
        try {
            if (progress_)
                progress_(u"páginas, registros e índices"_s, 0, 0);
            validate();
            if (base_.kind == Base::Main)
                findOrphans();
        } catch (const Interrupted&) {
            throw;
        } catch (const RuntimeError& error) {
            bad(u"não foi possível verificar a base %1: %2"_s.arg(connection_.database, FaultWords(error)));
        }
        return findings_;
    }

  private:
    void good(const QString& words) { findings_.push_back({true, words}); }
    void bad(const QString& words) { findings_.push_back({false, words}); }

    void validate() {
        const firebird::Validation found = validation();
        for (const QString& table : found.damaged)
            bad(u"a tabela %1 está danificada"_s.arg(table));
        for (const QString& table : found.skipped)
            bad(u"a tabela %1 não foi verificada, porque outro programa a ocupa; repita mais tarde"_s.arg(table));
        if (found.errors > 0)
            bad(u"o motor encontrou %1 erro(s) na base; restaure a última cópia de segurança"_s.arg(found.errors));
        if (findings_.empty())
            good(found.shared ? u"páginas, registros e índices de todas as tabelas, com a base em uso"_s
                              : u"páginas, registros e índices da base inteira"_s);
    }

    firebird::Validation validation() const {
        try {
            return firebird::ValidateAlone(connection_);
        } catch (const RuntimeError& error) {
            if (error.engineCode() != isc_bad_dpb_content && error.engineCode() != isc_lock_timeout)
                throw;
            return firebird::ValidateShared(connection_);
        }
    }

    void findOrphans() {
        Loader loader(base_.connection);
        const qsizetype before = qsizetype(findings_.size());
        qint64 done = 0;
        for (const Reference& each : references) {
            if (progress_)
                progress_(u"ligações entre as tabelas"_s, ++done, std::ssize(references));
            const qint64 count = loader.number(u"SELECT COUNT(*) "_s + orphans(each));
            if (count > 0)
                tell(loader, each, count);
        }
        if (qsizetype(findings_.size()) == before)
            good(u"contatos, ramos de atividade e vínculos: todos com a sua pessoa"_s);
    }

    void tell(Loader& loader, const Reference& each, qint64 count) {
        const Table* const table = FindTable(l1(each.table));
        QStringList keys;
        for (const QStringList& row :
             loader.rows(u"SELECT FIRST 5 C.%1 %2 ORDER BY 1"_s.arg(table->columns.front().name, orphans(each))))
            keys << row.front();
        bad(u"%1: %2 linha(s) cujo %3 não existe em %4%5 (%6 %7%8)"_s.arg(l1(each.table))
                .arg(count)
                .arg(l1(each.column), l1(each.parent), each.own ? u" para a mesma pessoa"_s : QString(),
                     table->columns.front().name, keys.join(u", "_s), count > keys.size() ? u", ..."_s : QString()));
    }

    NamedBase base_;
    firebird::ConnectionText connection_;
    const Progress& progress_;
    std::vector<Finding> findings_;
};

} // namespace

std::vector<Finding> VerifyBase(const QString& home, const QString& base, const Progress& progress) {
    return Verifier(FindBase(home, base), progress).run();
}

} // namespace vorta::kit
