#pragma once

#include "base/Literals.h"

#include <QJsonObject>
#include <QLockFile>
#include <memory>

namespace vorta {

class frmPessoas;

/// Keeps the running operation of the person screen in a file of the user's own, so that what was typed survives an end
/// that nobody wanted: a run-time error, the system's, a crash. The file is there only while an operation runs; a save
/// or a given-up operation takes it away. It belongs to one installation, user, company and environment, and each
/// window of those has one of its own.
class RascunhoPessoa {
  public:
    explicit RascunhoPessoa(frmPessoas& tela) : tela_(tela) {}
    ~RascunhoPessoa();

    /// Begins to keep drafts, where the company wants them and the platform has a place, and offers the one that an
    /// earlier run has left: "Sim" brings its operation back, "Não" throws it away.
    void Abre();
    /// The save is about to be committed under that key: a draft that outlives the commit is none.
    void VaiGravar(const QString& idpess);
    /// The operation is over; nothing of it stays.
    void Descarta();
    /// The screen closes by the user's own wish.
    void Encerra();

  private:
    bool TomaLugar();
    bool EmOperacao() const;
    void Observa(bool encerrando);
    QByteArray Conteudo() const;
    void Grava();

    void Oferece(const QJsonObject& rascunho);
    bool JaGravado(const QJsonObject& rascunho) const;
    bool Retoma(const QJsonObject& rascunho);
    bool Recarrega(const QString& idpess);
    void Preenche(const QJsonObject& rascunho);

    frmPessoas& tela_;
    QString arquivo_;                  ///< empty while no drafts are kept
    std::unique_ptr<QLockFile> lugar_; ///< held for as long as the file may be this window's
    QByteArray ultimo_;                ///< what stands, or will soon stand, in the file
    QString chave_;                    ///< of the save that is being committed
    bool concluida_ = false;           ///< the operation has been saved, but its box may still be there
};

} // namespace vorta
