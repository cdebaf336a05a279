#include "roles/PapelTest.h"

#include "base/Literals.h"
#include "roles/RegistraTelasPapeis.h"

namespace vorta::test {

PapelTest::PapelTest() {
    plataforma.everyFileExists = true;
    contexto.CodigoUsuario = 7;
    contexto.NomeUsuario = u"MARIA"_s;
    contexto.IdPessoaVinculo = u"5"_s;
    RegistraTelasPapeis(contexto);
    contexto.RegistraTela(u"frmPessoas"_s,
                          [](ContextoExecucao& dono) { return std::make_unique<PessoasDeTeste>(dono); });
    pessoas().txtRowID.setText(u"5"_s);
    base.answer(u"NOME_PESS FROM PESS"_s, {{u"NOME_PESS"_s}, {{test::text("JOSÉ DA SILVA")}}});
    base.answer(u"DESC_CARG"_s, {{u"desc_carg"_s}, {{test::text("COMPRADOR")}, {test::text("GERENTE")}}});
    conecta();
}

void PapelTest::conecta(const char* motor) {
    contexto.TipoBanco = QString::fromLatin1(motor);
    contexto.ConexaoPrincipal = contexto.novaConexao();
    contexto.ConexaoPrincipal->Open(contexto.isFirebird() ? data::Engine::Firebird : data::Engine::SqlServer, {});
}

void PapelTest::gerador(const char* nome, qint64 valor) {
    base.answer(u"gen_id(%1,"_s.arg(QLatin1StringView(nome)), {{u"GEN_ID"_s}, {{test::number(valor)}}});
}

void PapelTest::identidade(qint64 valor) {
    base.answer(identidadeLida, {{u"MaxRowID"_s}, {{test::number(valor)}}});
}

void PapelTest::registro(const char* tabela, const char* chave, QStringList colunas, QList<data::Value> valores) {
    const QString nome = QString::fromLatin1(tabela);
    const QString coluna = QString::fromLatin1(chave);
    base.answer(u"FROM %1, PESS"_s.arg(nome), {{coluna}, {{test::number(31)}}});
    if (!colunas.contains(u"data_desa"_s)) {
        colunas << u"data_desa"_s;
        valores << test::null();
    }
    base.answer(u"SELECT * FROM %1 WHERE %2 = "_s.arg(nome, coluna), {colunas, {valores}});
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
        registro(tabela, qPrintable(u"ID"_s + QLatin1StringView(tabela)), colunas, valores);
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
    const qsizetype inicio = base.sent.lastIndexOf(u"BEGIN"_s);
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
    return u"select gen_id(%1, 1) from RDB$GENERATORS where RDB$GENERATOR_NAME = '%1'; "_s.arg(QLatin1StringView(nome));
}

} // namespace vorta::test
