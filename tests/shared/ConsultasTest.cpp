#include "shared/Consultas.h"
#include "base/Literals.h"

#include "support/World.h"

using namespace vorta;
using namespace vorta::test;

namespace {

using C = ContextoExecucao;

/// A lookup with its argument, the text that it sends, the column that it reads, what it gives for no row, and whether
/// a null gives the same.
struct Consulta {
    const char* nome;
    QString (*chama)(C& contexto);
    const char* enviado;
    const char* coluna;
    const char* ausente;
    bool nuloSeguro = false;
};

template <auto funcao>
QString inteiro(C& contexto) {
    return QString::number(funcao(contexto, u"Ação 1"_s));
}
template <auto funcao>
QString texto(C& contexto) {
    return funcao(contexto, u"7"_s);
}

const std::vector<Consulta> consultas{
    {"IdColecao", inteiro<IdColecao>, "SELECT IDCOLE FROM COLE WHERE DESC_COLE='AÇÃO 1'", "idcole", "0"},
    {"IdProdutoPorCodigo", inteiro<IdProdutoPorCodigo>, "SELECT IDPROD FROM PROD WHERE CODI_PROD='AÇÃO 1'", "idProd",
     "0"},
    {"IdBanco", inteiro<IdBanco>, "SELECT IDBANC FROM BANC WHERE NOME_BANC='AÇÃO 1'", "idbanc", "0"},
    {"IdTipoCliente", inteiro<IdTipoCliente>, "SELECT IDTIPO_CLIE FROM TIPO_CLIE WHERE DESC_TIPO_CLIE='AÇÃO 1'",
     "idtipo_clie", "0"},
    {"IdTipoProduto", [](C& contexto) { return QString::number(IdTipoProduto(contexto, u" caixa "_s)); },
     "SELECT IDTIPO_PROD FROM TIPO_PROD WHERE DESC_TIPO_PROD='CAIXA'", "idtipo_prod", "0"},
    {"IdTransportadora", inteiro<IdTransportadora>,
     "SELECT TRPT.IDTRPT FROM TRPT, PESS WHERE PESS.IDPESS = TRPT.IDPESS AND PESS.NOME_CONH='AÇÃO 1'", "idTRPT", "0"},
    {"IdFornecedor", inteiro<IdFornecedor>,
     "SELECT FORN.IDFORN FROM FORN, PESS WHERE PESS.IDPESS = FORN.IDPESS AND PESS.NOME_PESS='AÇÃO 1'", "idForn", "0"},
    {"IdVendedor", inteiro<IdVendedor>,
     "SELECT VEND.IDVEND FROM VEND, PESS WHERE PESS.IDPESS = VEND.IDPESS AND PESS.NOME_CONH='AÇÃO 1'", "idvend", "0"},
    {"RetornaIdPessoaPorNome", inteiro<RetornaIdPessoaPorNome>, "SELECT IDPESS FROM PESS WHERE PESS.NOME_PESS='AÇÃO 1'",
     "IDPESS", "0"},
    {"RetornaIdPessoaPorFantasia", inteiro<RetornaIdPessoaPorFantasia>,
     "SELECT IDPESS FROM PESS WHERE PESS.NOME_CONH='AÇÃO 1'", "IDPESS", "0"},
    {"IdPessoaPorCodigoExterno", inteiro<IdPessoaPorCodigoExterno>,
     "SELECT IDPESS, PESS_CODI_EXTE FROM PESS WHERE PESS.PESS_CODI_EXTE='AÇÃO 1'", "IDPESS", "0", true},
    {"IdAtividade", inteiro<IdAtividade>,
     "SELECT ativ.idativ, ativ.desc_ativ FROM ativ WHERE (ativ.desc_ativ='Ação 1')", "idAtiv", "0"},
    {"IdRegimeEspecial", [](C& contexto) { return IdRegimeEspecial(contexto, u"Ação 1"_s); },
     "SELECT IDREGI_ESPE_ICMS FROM REGI_ESPE_ICMS WHERE DESC_REGI_ESPE_ICMS = 'AÇÃO 1'", "idregi_espe_icms", ""},
    {"DescricaoAtividade", [](C& contexto) { return DescricaoAtividade(contexto, 7); },
     "SELECT desc_ativ From ativ Where idativ = 7", "desc_ativ", ""},
    {"NomeBanco", texto<NomeBanco>, "SELECT NOME_BANC FROM BANC WHERE IDBANC=7", "nome_banc", "0"},
    {"NumeroNota", texto<NumeroNota>, "SELECT NUME_NFF FROM NFF WHERE IDNFF =7", "nume_nff", "0"},
    {"NomePessoa", texto<NomePessoa>, "SELECT NOME_PESS FROM PESS WHERE IDPESS=7", "NOME_PESS", ""},
    {"DescricaoTipoCliente", texto<DescricaoTipoCliente>, "SELECT DESC_TIPO_CLIE FROM TIPO_CLIE WHERE IDTIPO_CLIE=7",
     "desc_tipo_clie", ""},
    {"ConhecidoTransportadora", texto<ConhecidoTransportadora>,
     "SELECT PESS.NOME_CONH FROM PESS, TRPT WHERE PESS.IDPESS = TRPT.IDPESS AND TRPT.IDTRPT =7", "NOME_CONH", ""},
    {"ConhecidoVendedor", texto<ConhecidoVendedor>,
     "SELECT PESS.NOME_CONH FROM PESS, VEND WHERE PESS.IDPESS = VEND.IDPESS AND VEND.IDVEND =7", "NOME_CONH", ""},
    {"DescricaoRegimeEspecial", texto<DescricaoRegimeEspecial>,
     "SELECT DESC_REGI_ESPE_ICMS FROM REGI_ESPE_ICMS WHERE IDREGI_ESPE_ICMS =7", "Desc_regi_espe_icms", ""},
    {"MarcaProduto", [](C& contexto) { return QString::number(MarcaProduto(contexto, u"7"_s)); },
     "SELECT IDMARC FROM PROD WHERE IDPROD='7'", "idmarc", "0", true},
    {"CodigoExternoPessoa", texto<CodigoExternoPessoa>, "SELECT IDPESS, PESS_CODI_EXTE FROM PESS WHERE PESS.IDPESS='7'",
     "pess_codi_exte", "", true},
    {"LeUfEmpresa", [](C& contexto) { return LeUfEmpresa(contexto); },
     "SELECT UF00_COML_EMPR FROM EMPR Where (EMPR.DATA_DESA Is Null)", "UF00_COML_EMPR", "", true},
    {"TabelaPrecoCliente", texto<TabelaPrecoCliente>,
     "SELECT TABE_PREC FROM PESS, CLIE WHERE PESS.IDPESS = CLIE.IDPESS AND CLIE.IDCLIE=7", "tabe_prec", "0", true},
    {"VendedorCliente", texto<VendedorCliente>,
     "SELECT PESS.IDVEND FROM PESS, CLIE WHERE PESS.IDPESS = CLIE.IDPESS AND CLIE.IDCLIE=7", "idvend", "0", true},
    {"RetornaDocumentoPessoa by id", [](C& contexto) { return RetornaDocumentoPessoa(contexto, u"7"_s, u"MARIA"_s); },
     "SELECT CPF0_CNPJ FROM PESS WHERE PESS.IDPESS='7'", "cpf0_cnpj", "", true},
    {"RetornaDocumentoPessoa by name", [](C& contexto) { return RetornaDocumentoPessoa(contexto, {}, u"Maria"_s); },
     "SELECT CPF0_CNPJ FROM PESS WHERE PESS.NOME_PESS='MARIA'", "cpf0_cnpj", "", true},
    {"CodigoMunicipio",
     [](C& contexto) {
         QString cidade = u" Santos "_s;
         return CodigoMunicipio(contexto, cidade, u" SP "_s);
     },
     "SELECT CODI_MUNI_IBGE FROM MUNI_IBGE WHERE DESC_MUNI_IBGE = 'SANTOS' AND UF00_MUNI_IBGE = 'SP'", "codi_muni_ibge",
     ""},
};

} // namespace

TEST(Consultas, EachSendsItsOneStatement) {
    for (const Consulta& consulta : consultas) {
        World world;
        world.connect();
        consulta.chama(world.contexto);
        EXPECT_EQ(world.database.sent, QStringList(QString::fromUtf8(consulta.enviado))) << consulta.nome;
    }
}

TEST(Consultas, NoRowGivesEachItsOwnValue) {
    for (const Consulta& consulta : consultas) {
        World world;
        world.connect();
        EXPECT_EQ(consulta.chama(world.contexto), QString::fromUtf8(consulta.ausente)) << consulta.nome;
    }
}

TEST(Consultas, ARowGivesItsColumn) {
    for (const Consulta& consulta : consultas) {
        World world;
        world.connect();
        world.database.answer(u""_s, {{u"outra"_s, QString::fromUtf8(consulta.coluna)}, {{text("x"), number(42)}}});
        EXPECT_EQ(consulta.chama(world.contexto), u"42"_s) << consulta.nome;
    }
}

TEST(Consultas, ANullIsForgivenWhereForeseenOnly) {
    for (const Consulta& consulta : consultas) {
        World world;
        world.connect();
        world.database.answer(u""_s, {{QString::fromUtf8(consulta.coluna)}, {{null()}}});
        QString resultado;
        const int erro = ErrorOf([&] { resultado = consulta.chama(world.contexto); });
        EXPECT_EQ(erro, consulta.nuloSeguro ? 0 : errorNumber::InvalidNull) << consulta.nome;
        if (consulta.nuloSeguro) {
            EXPECT_EQ(resultado, QString::fromUtf8(consulta.ausente)) << consulta.nome;
        }
    }
}

TEST(Consultas, AFailureIsNotCaught) {
    for (const Consulta& consulta : consultas) {
        World world;
        EXPECT_EQ(ErrorOf([&] { consulta.chama(world.contexto); }), errorNumber::ObjectNotSet) << consulta.nome;
        world.connect();
        world.database.fail(u""_s, errorNumber::StatementRefused);
        EXPECT_EQ(ErrorOf([&] { consulta.chama(world.contexto); }), errorNumber::StatementRefused) << consulta.nome;
    }
}

TEST(Consultas, AnApostropheBreaksItsOwnLookupOnly) {
    World world;
    world.connect();
    EXPECT_EQ(ErrorOf([&] { IdBanco(world.contexto, u"D'AVILA"_s); }), errorNumber::StatementRefused);
    EXPECT_EQ(ErrorOf([&] { IdBanco(world.contexto, u"x' or '1'='1"_s); }), errorNumber::StatementRefused);
    EXPECT_TRUE(world.database.sent.isEmpty());
}

TEST(Consultas, TheCapitalOfSaoPauloGetsItsAccent) {
    World world;
    world.connect();
    QString cidade = u"SAO PAULO"_s;
    CodigoMunicipio(world.contexto, cidade, u"SP"_s);
    EXPECT_EQ(cidade, u"São Paulo"_s);
    EXPECT_EQ(world.database.sent.last(),
              u"SELECT CODI_MUNI_IBGE FROM MUNI_IBGE WHERE DESC_MUNI_IBGE = 'SÃO PAULO' AND UF00_MUNI_IBGE = 'SP'"_s);
    cidade = u"SAO PAULO "_s;
    CodigoMunicipio(world.contexto, cidade, u"SP"_s);
    EXPECT_EQ(cidade, u"SAO PAULO "_s);
}

TEST(Consultas, CustomerExists) {
    World world;
    world.connect();
    EXPECT_FALSE(ClienteExiste(world.contexto, u"7"_s));
    EXPECT_EQ(world.database.sent, QStringList(u"SELECT * From clie WHERE idClie=7"_s));
    world.database.answer(u"From clie"_s, {{u"idclie"_s}, {{number(7)}}});
    EXPECT_TRUE(ClienteExiste(world.contexto, u"7"_s));
}

TEST(Consultas, PostalCodesAreActiveForACapitalSOnly) {
    World world;
    world.connect();
    EXPECT_FALSE(CepAtivo(world.contexto));
    EXPECT_EQ(world.database.sent, QStringList(u"SELECT STAT_CEP8 FROM EMPR WHERE DATA_DESA IS NULL"_s));
    const std::vector<std::pair<data::Value, bool>> casos{
        {text("S"), true}, {text("s"), false}, {text("N"), false}, {text(""), false}, {null(), false}};
    for (const auto& [valor, ativo] : casos) {
        world.database.answer(u"STAT_CEP8"_s, {{u"STAT_CEP8"_s}, {{valor}}});
        EXPECT_EQ(CepAtivo(world.contexto), ativo);
    }
}

TEST(Consultas, PictureColumnsOfAProduct) {
    World world;
    world.connect();
    EXPECT_EQ(RetornaCaminhoImagem(world.contexto, u" 7 "_s, u"LocalThumb"_s), QString());
    EXPECT_EQ(world.database.sent, QStringList(u"SELECT * FROM PROD WHERE IDPROD=7"_s));
    world.database.answer(u"FROM PROD"_s,
                          {{u"CAMINHO_ARQ_LOCAL_THUMB"_s, u"CAMINHO_ARQ_LOCAL_NATURAL"_s, u"CAMINHO_ARQ_WEB_THUMB"_s},
                           {{text("local"), text("natural"), null()}}});
    EXPECT_EQ(RetornaCaminhoImagem(world.contexto, u"7"_s, u"LocalThumb"_s), u"local"_s);
    EXPECT_EQ(RetornaCaminhoImagem(world.contexto, u"7"_s, u"LocalNatural"_s), u"natural"_s);
    EXPECT_EQ(RetornaCaminhoImagem(world.contexto, u"7"_s, u"WEBThumb"_s), QString());
    EXPECT_EQ(RetornaCaminhoImagem(world.contexto, u"7"_s, u"WEBNatural"_s), u"local"_s);
    EXPECT_EQ(RetornaCaminhoImagem(world.contexto, u"7"_s, u"outro"_s), QString());
}

TEST(Consultas, PictureOfAProductIsItsFileItsRowOrTheMissingPhoto) {
    World world;
    world.connect();
    world.contexto.CaminhoImagens = u"/img/"_s;
    world.contexto.ExtensaoImagens = u".jpg"_s;
    world.contexto.ImagemSemFoto = u"/img/semfoto.jpg"_s;
    const auto imagem = [&] { return LocalizaImagemProduto(world.contexto, u" P1 "_s); };
    EXPECT_EQ(imagem(), u"/img/semfoto.jpg"_s);
    world.database.answer(u"CODI_PROD"_s, {{u"idprod"_s}, {{number(7)}}});
    world.database.answer(u"IDPROD=7"_s, {{u"CAMINHO_ARQ_LOCAL_THUMB"_s}, {{text("/outra/p1.png")}}});
    EXPECT_EQ(imagem(), u"/img/semfoto.jpg"_s) << "the path of the row names no file";
    world.platform.files[u"/outra/p1.png"_s] = {};
    EXPECT_EQ(imagem(), u"/outra/p1.png"_s);
    world.platform.files[u"/img/P1.jpg"_s] = {};
    world.database.sent.clear();
    EXPECT_EQ(imagem(), u"/img/P1.jpg"_s);
    EXPECT_EQ(world.contexto.ImagemProduto, u"/img/P1.jpg"_s);
    EXPECT_TRUE(world.database.sent.isEmpty()) << "a file by its code asks nothing";
}

TEST(Consultas, CustomerDataInEighteenFields) {
    World world;
    world.connect();
    EXPECT_EQ(DadosCliente(world.contexto, u"9"_s), QString(18, u'^'));
    EXPECT_EQ(
        world.database.sent,
        QStringList(u"SELECT PESS.NOME_PESS, PESS.NOME_CONH, PESS.ENDE_COML_PESS, PESS.CIDA_COML_PESS, "
                    "PESS.UF00_COML_PESS, PESS.IDPESS, PESS.CEP0_COML_PESS, PESS.RG00_IE00, PESS.CPF0_CNPJ, "
                    "PESS.BAIR_COML_PESS, PESS.NUME_COML_PESS, CMPL_COML_PESS, PESS.CODI_MUNI_COML_PESS, "
                    "PESS.TELE_0001_PESS, PESS.PSFI_PSJU, PESS.EMAI_PESS, PESS.TELE_0002_PESS, "
                    "PESS.FAX0_0002_PESS FROM CLIE, PESS WHERE PESS.IDPESS = CLIE.IDPESS AND CLIE.IDCLIE = '9'"_s));
    world.database.answer(
        u"CLIE.IDCLIE"_s,
        {{u"NOME_PESS"_s, u"NOME_CONH"_s, u"ENDE_COML_PESS"_s, u"CIDA_COML_PESS"_s, u"UF00_COML_PESS"_s, u"IDPESS"_s,
          u"CEP0_COML_PESS"_s, u"RG00_IE00"_s, u"CPF0_CNPJ"_s, u"BAIR_COML_PESS"_s, u"NUME_COML_PESS"_s,
          u"CMPL_COML_PESS"_s, u"CODI_MUNI_COML_PESS"_s, u"TELE_0001_PESS"_s, u"PSFI_PSJU"_s, u"EMAI_PESS"_s,
          u"TELE_0002_PESS"_s, u"FAX0_0002_PESS"_s},
         {{text("MARIA"), text("MA"), text("RUA A"), text("SANTOS"), text("SP"), number(7), text("11015-200"), null(),
           text("111.444.777-35"), text("CENTRO"), text("10"), null(), text("3548500"), text("3222"), text("F"),
           text("m@c.br"), null(), text("FAX")}}});
    EXPECT_EQ(DadosCliente(world.contexto, u"9"_s),
              u"MARIA^RUA A^SANTOS^SP^11015-200^^111.444.777-35^CENTRO^10^3548500^3222^F^^m@c.br^^FAX^MA^7^"_s);
}
