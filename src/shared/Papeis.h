#pragma once

#include "data/Statement.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>

/// The seven roles that a person may play: everything that screens, links, searches and statements must know of a role,
/// once. A new role begins with its row here.
namespace vorta {

enum class TipoPapel { Cliente, Transportadora, Vendedor, Motorista, Fornecedor, Decorador, Arquiteto };

/// At most three values, kept in the row itself.
template <typename T>
class AteTres {
  public:
    constexpr AteTres() = default;
    constexpr AteTres(std::initializer_list<T> valores) : quantos_(valores.size()) {
        std::copy_n(valores.begin(), valores.size(), valores_.begin());
    }
    constexpr const T* begin() const { return valores_.data(); }
    constexpr const T* end() const { return valores_.data() + quantos_; }

  private:
    std::array<T, 3> valores_ = {};
    std::size_t quantos_ = 0;
};

/// A table of contact people. Its columns are named after the table.
struct TabelaContatos {
    data::Piece tabela;
    std::optional<data::Piece> gerador; ///< none where the database fills the key
};

/// A column that a link made at once fills besides the common ones.
struct ColunaInicial {
    data::Piece coluna = "";
    const char* valor = "";
};

/// What the person search does with a role's option between two openings.
enum class MemoriaBusca {
    Esquece,
    SoLembra, ///< a remembered option comes back, but none is ever written down
    Guarda
};

struct Papel {
    TipoPapel tipo;
    const char* nome;    ///< in the questions of the direct link
    QStringView palavra; ///< asks the search for a document for persons of this role
    /// The words with which another screen asks the person search for this role alone.
    AteTres<QStringView> pedidos = {};

    data::Piece tabela;
    data::Piece chave;                       ///< of the table; the back-reference in `PESS` bears the same name
    std::optional<data::Piece> gerador = {}; ///< none where the database fills the key
    std::optional<TabelaContatos> contatos = {};
    AteTres<ColunaInicial> iniciais = {};

    const char* tela;
    const char* botao;                   ///< on the person screen
    const char* opcao;                   ///< in the person search
    const char* parametroBotao;          ///< company switch; "N" hides the button
    const char* parametroTela = nullptr; ///< "N" links at once; none: the button does nothing but open the screen

    MemoriaBusca memoria = MemoriaBusca::Guarda;
    bool mostraIdNaBusca = false; ///< the person search shows the id in the column headed "idClie" too
    bool prendePessoa = false;    ///< a person in this role cannot be deactivated
};

/// One row for each `TipoPapel`, in the order in which the links of a person are asked.
inline constexpr std::array papeis{
    Papel{.tipo = TipoPapel::Cliente,
          .nome = "Cliente",
          .palavra = u"CLIENTE",
          .pedidos = {u"CLIENTE", u"CLIENTETRELOGA", u"CLIENTEEXPRESS"},
          .tabela = "clie",
          .chave = "idClie",
          .gerador = data::Piece("GEN_CLIE"),
          .contatos = TabelaContatos{"clie_cont", data::Piece("GEN_CLIE_CONT")},
          .iniciais = {{"idTipo_Clie", "0"}},
          .tela = "frmCliente",
          .botao = "cmdCliente",
          .opcao = "opCliente",
          .parametroBotao = "PESS_BOTAO_CLIENTE",
          .parametroTela = "PESS_TELA_CLIENTE",
          .mostraIdNaBusca = true,
          .prendePessoa = true},
    Papel{.tipo = TipoPapel::Transportadora,
          .nome = "Transportadora",
          .palavra = u"TRANSPORTADORA",
          .pedidos = {u"TRANSPORTADORA"},
          .tabela = "trpt",
          .chave = "idTRPT",
          .gerador = data::Piece("GEN_TRPT"),
          .contatos = TabelaContatos{"trpt_cont", data::Piece("GEN_TRPT_CONT")},
          .tela = "frmTransportadora",
          .botao = "cmdTransportadora",
          .opcao = "opTransportadora",
          .parametroBotao = "PESS_BOTAO_TRANSPORTADORA",
          .parametroTela = "PESS_TELA_TRANSPORTADORA",
          .prendePessoa = true},
    Papel{.tipo = TipoPapel::Vendedor,
          .nome = "Vendedor",
          .palavra = u"VENDEDOR",
          .pedidos = {u"VENDEDOR", u"VENDEDOREXPRESS"},
          .tabela = "vend",
          .chave = "idVend",
          .gerador = data::Piece("GEN_VEND"),
          .iniciais = {{"valo_sala", "0.00"}, {"perc_pool", "0.00"}, {"perc_coms", "0.00"}},
          .tela = "frmVendedor",
          .botao = "cmdVendedor",
          .opcao = "opVendedor",
          .parametroBotao = "PESS_BOTAO_VENDEDOR",
          .parametroTela = "PESS_TELA_VENDEDOR",
          .prendePessoa = true},
    Papel{.tipo = TipoPapel::Motorista,
          .nome = "Motorista",
          .palavra = u"MOTORISTA",
          .pedidos = {u"MOTORISTATRELOGA"},
          .tabela = "moto",
          .chave = "idMoto",
          .gerador = data::Piece("GEN_MOTO"),
          .tela = "frmMotorista",
          .botao = "cmdMotorista",
          .opcao = "opMotorista",
          .parametroBotao = "PESS_BOTAO_MOTORISTA"},
    Papel{.tipo = TipoPapel::Fornecedor,
          .nome = "Fornecedor",
          .palavra = u"FORNECEDOR",
          .pedidos = {u"FORNECEDOR", u"FORNECEDOREXPRESS"},
          .tabela = "forn",
          .chave = "idForn",
          .gerador = data::Piece("GEN_FORN"),
          .contatos = TabelaContatos{"forn_cont", data::Piece("GEN_FORN_CONT")},
          .tela = "frmFornecedor",
          .botao = "cmdFornecedor",
          .opcao = "opFornecedor",
          .parametroBotao = "PESS_BOTAO_FORNECEDOR",
          .parametroTela = "PESS_TELA_FORNECEDOR",
          .mostraIdNaBusca = true,
          .prendePessoa = true},
    Papel{.tipo = TipoPapel::Decorador,
          .nome = "Decorador",
          .palavra = u"DECORADOR",
          .pedidos = {u"DECORADOR", u"DECORADOREXPRESS"},
          .tabela = "deco",
          .chave = "idDeco",
          .contatos = TabelaContatos{"deco_cont", {}},
          .tela = "frmDecorador",
          .botao = "cmdDecorador",
          .opcao = "opDecorador",
          .parametroBotao = "PESS_BOTAO_DECORADOR",
          .parametroTela = "PESS_TELA_DECORADOR",
          .memoria = MemoriaBusca::Esquece},
    Papel{.tipo = TipoPapel::Arquiteto,
          .nome = "Arquiteto",
          .palavra = u"ARQUITETO",
          .pedidos = {u"ARQUITETO", u"ARQUITETOEXPRESS"},
          .tabela = "arqt",
          .chave = "idArqt",
          .contatos = TabelaContatos{"arqt_cont", {}},
          .tela = "frmArquiteto",
          .botao = "cmdArquiteto",
          .opcao = "opArquiteto",
          .parametroBotao = "PESS_BOTAO_ARQUITETO",
          .parametroTela = "PESS_TELA_ARQUITETO",
          .memoria = MemoriaBusca::SoLembra},
};

/// The row of a role.
constexpr const Papel& PapelDe(TipoPapel tipo) {
    return papeis.at(static_cast<std::size_t>(tipo));
}

/// The rows stand in the order of their numbers, which is how `PapelDe` finds them.
static_assert([] {
    for (std::size_t linha = 0; linha < papeis.size(); ++linha)
        if (papeis[linha].tipo != static_cast<TipoPapel>(linha))
            return false;
    return true;
}());

} // namespace vorta
