#pragma once

#include "roles/TelaComissionado.h"

namespace vorta {

inline constexpr RegrasTelaPapel regrasDecorador{.grupo = comissionado,
                                                 .sufixo = " - Cadastro de Decoradores ",
                                                 .rotuloId = "lblRowIdDecorador",
                                                 .primeiroCampo = "mskDtAdmissao",
                                                 .chaveNova = ChaveNova::Perguntada,
                                                 .erroNoSalvar = ErroNoSalvar::Encerra,
                                                 .buscaQualificada = true,
                                                 .guardaVinculo = true};

/// The record of a person as a decorator.
class frmDecorador : public TelaComissionado {
  public:
    explicit frmDecorador(ContextoExecucao& contexto)
        : TelaComissionado(contexto, TipoPapel::Decorador, regrasDecorador, {"txtADD", "deco_add0"}) {}
};

} // namespace vorta
