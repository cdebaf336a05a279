#include "roles/PapelTest.h"

#include "base/Literals.h"
#include "roles/RegistraTelasPapeis.h"

namespace vorta::test {

PapelTest::PapelTest() {
    platform.everyFileExists = true;
    contexto.CodigoUsuario = 7;
    contexto.NomeUsuario = u"MARIA"_s;
    contexto.IdPessoaVinculo = u"5"_s;
    RegistraTelasPapeis(contexto);
    contexto.RegistraTela(u"frmPessoas"_s,
                          [](ContextoExecucao& dono) { return std::make_unique<PessoasDeTeste>(dono); });
    pessoas().txtRowID.setText(u"5"_s);
    database.answer(u"NOME_PESS FROM PESS"_s, {{u"NOME_PESS"_s}, {{test::text("JOSÉ DA SILVA")}}});
    database.answer(u"DESC_CARG"_s, {{u"desc_carg"_s}, {{test::text("COMPRADOR")}, {test::text("GERENTE")}}});
    connect();
}

void PapelTest::generator(const char* nome, qint64 valor) {
    database.answer(u"gen_id(%1,"_s.arg(QLatin1StringView(nome)), {{u"GEN_ID"_s}, {{test::number(valor)}}});
}

void PapelTest::identity(qint64 valor) {
    database.answer(identityRead, {{u"MaxRowID"_s}, {{test::number(valor)}}});
}

void PapelTest::roleRow(const char* tabela, const char* chave, QStringList colunas, QList<data::Value> valores) {
    const QString nome = QString::fromLatin1(tabela);
    const QString coluna = QString::fromLatin1(chave);
    database.answer(u"FROM %1, PESS"_s.arg(nome), {{coluna}, {{test::number(31)}}});
    if (!colunas.contains(u"data_desa"_s)) {
        colunas << u"data_desa"_s;
        valores << test::null();
    }
    database.answer(u"SELECT * FROM %1 WHERE %2 = "_s.arg(nome, coluna), {colunas, {valores}});
}

void PapelTest::roleRows(const data::Value& desativada) {
    const QStringList colunas{
        "data_desa",      "data_cred",     "data_adms",        "valo_sala", "perc_pool",      "perc_coms",
        "limi_copr",      "desconto_forn", "cnh0_moto",        "pron_moto", "uf00_pron_moto", "pai0_moto",
        "mae0_moto",      "refe_moto",     "idtrpt",           "reve",      "idtipo_clie",    "idvend",
        "lime_maxi_conh", "valo_troc",     "idregi_espe_icms", "arqt_crea", "deco_add0",      "idbanc",
        "banc_agen",      "banc_cont",     "limi_cred"};
    QList<data::Value> valores(colunas.size(), test::null());
    valores[0] = desativada;
    for (const char* tabela : {"CLIE", "FORN", "TRPT", "MOTO", "VEND", "ARQT", "DECO"})
        roleRow(tabela, qPrintable(u"ID"_s + QLatin1StringView(tabela)), colunas, valores);
}

void PapelTest::open(const char* nome, const std::function<void()>& uso) {
    const QString procurada = QString::fromLatin1(nome);
    platform.whenShown(procurada, [&](screen::Screen& aberta) {
        tela_ = &dynamic_cast<TelaPapel&>(aberta);
        uso();
    });
    program.dispatch([&] { contexto.MostraTela(procurada); });
}

void PapelTest::addContact(const char* tipo, const char* nome, const char* fone, const char* email,
                           const char* aniversario) {
    type("cboTipoContato", tipo);
    type("txtNomeContato", nome);
    type("txtFoneContato", fone);
    type("txtEmailContato", email);
    type("mskDtNasc", aniversario);
    click("cmdIncluirContato");
}

QStringList PapelTest::transaction() const {
    const qsizetype inicio = database.sent.lastIndexOf(u"BEGIN"_s);
    if (inicio < 0)
        return {};
    QStringList comandos = database.sent.mid(inicio + 1);
    for (qsizetype fim = 0; fim < comandos.size(); ++fim)
        if (comandos[fim] == u"COMMIT" || comandos[fim] == u"CLOSE")
            return comandos.first(fim);
    return comandos;
}

QStringList PapelTest::takeWrites() {
    return std::exchange(database.writes, {});
}

QString GeneratorRead(const char* nome) {
    return u"select gen_id(%1, 1) from RDB$GENERATORS where RDB$GENERATOR_NAME = '%1'; "_s.arg(QLatin1StringView(nome));
}

} // namespace vorta::test
