#pragma once

/// What the columns hold where a screen sets no limit of its own, in characters: a longer text would end a save with
/// the engine's error, and with it what was typed.
namespace vorta::capacidade {

inline constexpr int texto = 100;
inline constexpr int codigo = 20;
inline constexpr int nota = 255;
inline constexpr int valor = 13; ///< digits in front of the two decimals

} // namespace vorta::capacidade
