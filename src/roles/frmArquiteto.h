#pragma once

#include "roles/TelaComissionado.h"

namespace vorta {

inline constexpr RegrasTelaPapel regrasArquiteto{.grupo = comissionado,
                                                 .sufixo = " - Cadastro de Arquitetos ",
                                                 .rotuloId = "lblRowidArquiteto",
                                                 .primeiroCampo = "mskDtAdmissao",
                                                 .chaveNova = ChaveNova::Perguntada,
                                                 .erroNoSalvar = ErroNoSalvar::Encerra,
                                                 .buscaQualificada = true,
                                                 .guardaVinculo = true};

/// The record of a person as an architect.
class frmArquiteto : public TelaComissionado {
  public:
    explicit frmArquiteto(ContextoExecucao& contexto)
        : TelaComissionado(contexto, TipoPapel::Arquiteto, regrasArquiteto, {"txtCREA", "arqt_crea"}) {}
};

} // namespace vorta
