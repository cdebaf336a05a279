#pragma once

#include "launch/ContextoExecucao.h"

/// Text and input helpers that every screen uses; none of them reads the database.
namespace vorta {

/// Exactly `largura` characters for the columns of a list: trimmed (also in the caller's variable), cut or filled with
/// blanks, standing left or right.
QString AlinhaTexto(QString& texto, qint16 largura, bool aEsquerda);
/// The same for a value of a row, a null counting as blanks.
QString AlinhaTexto(const data::Value& valor, qint16 largura, bool aEsquerda);
/// Replaces the trimmed `procurado` by `novo` in the caller's variable until none is left, and gives the changed text.
QString SubstituiTexto(QString& texto, const QString& procurado, const QString& novo);

/// The text without the accents of vowels and cedillas; unchanged when the installation keeps accents
/// (`PreservaAcentos`).
QString RemoveAcentos(const ContextoExecucao& contexto, const QString& texto);
/// Executes a write statement in capitals and without accents, as all saves and status changes do.
void ExecutaSemAcentos(ContextoExecucao& contexto, const data::Statement& comando);
/// The same for a statement that has just been assembled: it is left in `SqlComando`.
void EnviaComando(ContextoExecucao& contexto, const data::Statement& comando);

/// Selects the whole text of the text or masked field with the focus; does nothing with any other field.
void SelecionaTexto(screen::Screen& tela);
/// Empties a masked field and keeps its mask.
void LimpaMascara(screen::MaskedField& campo);
/// Hands a "mailto:" address, in lower case, to the desktop; a blank address does nothing. It is one address whatever
/// stands in it.
void AbreEmail(ContextoExecucao& contexto, const QString& endereco);
/// Trims the text of every field whose name begins with "txt".
void TrimCamposTexto(screen::Screen& tela);

/// Locks or frees a field the way every screen does: masked fields by being enabled, all others by their lock; grey
/// when locked, white when free.
void BloqueiaCampo(screen::Field& campo);
void LiberaCampo(screen::Field& campo);

} // namespace vorta
