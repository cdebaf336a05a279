#pragma once

namespace vorta {

/// The four routines through which every change of state of the person screen passes.
class RotinasPessoa {
  public:
    virtual ~RotinasPessoa() = default;
    virtual void LimpaTela() = 0;       ///< clears the screen
    virtual void PosicionaBotoes() = 0; ///< buttons of the idle state
    virtual void BloqueiaCampos() = 0;  ///< locks the data fields
    virtual void LiberaCampos() = 0;    ///< frees them for inclusion or alteration
};

} // namespace vorta
