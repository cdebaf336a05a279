#include "bench/ImportCases.h"

#include "base/Literals.h"
#include "bench/Lazy.h"
#include "bench/Recorder.h"
#include "importer/Importer.h"
#include "importer/KnownPersons.h"
#include "kit/ConfigFiles.h"
#include "kit/Create.h"
#include "kit/Documents.h"

#include <QTemporaryDir>

namespace vorta::bench {

namespace {

constexpr int persons = 100;
constexpr quint64 firstDocument = 7'000'000;

const QStringList header{u"NOME_PESS"_s,      u"CPF0_CNPJ"_s,      u"CEP0_COML_PESS"_s, u"ENDE_COML_PESS"_s,
                         u"NUME_COML_PESS"_s, u"BAIR_COML_PESS"_s, u"UF00_COML_PESS"_s, u"CIDA_COML_PESS"_s,
                         u"TELE_0001_PESS"_s, u"EMAI_PESS"_s,      u"CONTATO1_TIPO"_s,  u"CONTATO1_NOME"_s,
                         u"CONTATO2_TIPO"_s,  u"CONTATO2_NOME"_s,  u"RAMO1"_s};

/// An installation without persons, for the importer on one side and the bare client on the other.
class ImportBench {
  public:
    ImportBench() {
        kit::CreateInstallation(folder_.path(), {});
        const importer::Columns columns(header, {});
        for (int number = 1; number <= persons; ++number)
            rows_.push_back(
                columns.row({u"Importada %1"_s.arg(number),
                             QString::fromLatin1(kit::Cpf(firstDocument + static_cast<quint64>(number))),
                             u"01310-100"_s, u"Rua da Importação"_s, QString::number(number), u"Centro"_s, u"SP"_s,
                             u"Osasco"_s, u"11 4000-0001"_s, u"a%1@exemplo.com.br"_s.arg(number), u"Diretor"_s,
                             u"Contato A"_s, u"Gerente"_s, u"Contato B"_s, u"Informática"_s}));
    }

    double enters() {
        double taken = 0;
        onScreens([&](importer::Importer& importer) { taken = Microseconds(persons, [&] { enterAll(importer); }); });
        return taken;
    }

    double sendsBare() {
        if (sent_.isEmpty())
            onScreens([&](importer::Importer& importer) { sent_ = recorder_.record([&] { enterAll(importer); }); });
        BareClient bare(kit::Layout(folder_.path()).base(kit::Environments().front().base));
        return Microseconds(persons, [&] {
            bare.begin();
            for (const QByteArray& statement : sent_)
                bare.send(statement);
            bare.rollback();
        });
    }

  private:
    void onScreens(const std::function<void(importer::Importer&)>& work) {
        importer::Importer importer(folder_.path(), u"1^1^PRD^False^"_s, true,
                                    [this](const QString& text) { recorder_.hear(text); });
        importer.open([&] { work(importer); });
    }
    void enterAll(importer::Importer& importer) {
        importer::KnownPersons known;
        for (size_t at = 0; at < rows_.size(); ++at) {
            const auto answer = known.ask(importer.context(), rows_[at], static_cast<qint64>(at) + 2);
            if (answer.known || !answer.conflict.isEmpty() || !importer.enter(rows_[at]).isEmpty())
                throw std::logic_error("the measured work does not do what it should");
        }
    }

    QTemporaryDir folder_;
    Recorder recorder_;
    Recorder::Statements sent_;
    std::vector<importer::PersonRow> rows_;
};

} // namespace

std::vector<Case> ImportCases() {
    const Lazy<ImportBench> bench;
    return {{u"import: person with 2 contacts and a branch"_s, u"us/person"_s, [bench] { return bench->sendsBare(); },
             [bench] { return bench->enters(); }, 0.5}};
}

} // namespace vorta::bench
