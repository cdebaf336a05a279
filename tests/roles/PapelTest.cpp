#include "roles/PapelTest.h"

#include "roles/RegistraTelasPapeis.h"

namespace vorta::test {

PapelTest::PapelTest() {
    plataforma.everyFileExists = true;
    contexto.CodigoUsuario = 7;
    contexto.NomeUsuario = QStringLiteral("MARIA");
    contexto.IdPessoaVinculo = QStringLiteral("5");
    RegistraTelasPapeis(contexto);
    contexto.RegistraTela(QStringLiteral("frmPessoas"),
                          [](ContextoExecucao& dono) { return std::make_unique<PessoasDeTeste>(dono); });
    pessoas().txtRowID.setText(QStringLiteral("5"));
    base.answer(QStringLiteral("NOME_PESS FROM PESS"),
                {{QStringLiteral("NOME_PESS")}, {{test::text("JOSÉ DA SILVA")}}});
    base.answer(QStringLiteral("DESC_CARG"),
                {{QStringLiteral("desc_carg")}, {{test::text("COMPRADOR")}, {test::text("GERENTE")}}});
    conecta();
}

void PapelTest::conecta(const char* motor) {
    contexto.TipoBanco = QString::fromLatin1(motor);
    contexto.ConexaoPrincipal = contexto.novaConexao();
    contexto.ConexaoPrincipal->Open(contexto.isFirebird() ? data::Engine::Firebird : data::Engine::SqlServer, {});
}

void PapelTest::gerador(const char* nome, qint64 valor) {
    base.answer(QStringLiteral("gen_id(%1,").arg(QLatin1StringView(nome)),
                {{QStringLiteral("GEN_ID")}, {{test::number(valor)}}});
}

void PapelTest::identidade(qint64 valor) {
    base.answer(identidadeLida, {{QStringLiteral("MaxRowID")}, {{test::number(valor)}}});
}

void PapelTest::registro(const char* tabela, const char* chave, QStringList colunas, QList<data::Value> valores) {
    const QString nome = QString::fromLatin1(tabela);
    const QString coluna = QString::fromLatin1(chave);
    base.answer(QStringLiteral("FROM %1, PESS").arg(nome), {{coluna}, {{test::number(31)}}});
    if (!colunas.contains(QStringLiteral("data_desa"))) {
        colunas << QStringLiteral("data_desa");
        valores << test::null();
    }
    base.answer(QStringLiteral("SELECT * FROM %1 WHERE %2 = ").arg(nome, coluna), {colunas, {valores}});
}

void PapelTest::registros(const data::Value& desativada) {
    const QStringList colunas{
        "data_desa",      "data_cred",     "data_adms",        "valo_sala", "perc_pool",      "perc_coms",
        "limi_copr",      "desconto_forn", "cnh0_moto",        "pron_moto", "uf00_pron_moto", "pai0_moto",
        "mae0_moto",      "refe_moto",     "idtrpt",           "reve",      "idtipo_clie",    "idvend",
        "lime_maxi_conh", "valo_troc",     "idregi_espe_icms", "arqt_crea", "deco_add0",      "idbanc",
        "banc_agen",      "banc_cont",     "limi_cred"};
    QList<data::Value> valores(colunas.size(), test::null());
    valores[0] = desativada;
    for (const char* tabela : {"CLIE", "FORN", "TRPT", "MOTO", "VEND", "ARQT", "DECO"})
        registro(tabela, qPrintable(QStringLiteral("ID") + QLatin1StringView(tabela)), colunas, valores);
}

void PapelTest::abre(const char* nome, const std::function<void()>& uso) {
    const QString procurada = QString::fromLatin1(nome);
    plataforma.whenShown(procurada, [&](screen::Screen& aberta) {
        tela_ = &dynamic_cast<TelaPapel&>(aberta);
        uso();
    });
    programa.dispatch([&] { contexto.MostraTela(procurada); });
}

void PapelTest::incluiContato(const char* tipo, const char* nome, const char* fone, const char* email,
                              const char* aniversario) {
    digita("cboTipoContato", tipo);
    digita("txtNomeContato", nome);
    digita("txtFoneContato", fone);
    digita("txtEmailContato", email);
    digita("mskDtNasc", aniversario);
    clica("cmdIncluirContato");
}

QStringList PapelTest::transacao() const {
    const qsizetype inicio = base.sent.lastIndexOf(QStringLiteral("BEGIN"));
    if (inicio < 0)
        return {};
    QStringList comandos = base.sent.mid(inicio + 1);
    for (qsizetype fim = 0; fim < comandos.size(); ++fim)
        if (comandos[fim] == u"COMMIT" || comandos[fim] == u"CLOSE")
            return comandos.first(fim);
    return comandos;
}

QStringList PapelTest::escritas() {
    return std::exchange(base.writes, {});
}

QString LeituraGerador(const char* nome) {
    return QStringLiteral("select gen_id(%1, 1) from RDB$GENERATORS where RDB$GENERATOR_NAME = '%1'; ")
        .arg(QLatin1StringView(nome));
}

} // namespace vorta::test
