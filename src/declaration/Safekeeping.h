#pragma once

#include "family/Process.h"
#include "form518/UnsavedDeclaration.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <optional>

namespace xa518 {

/// Keeps what is typed in a declaration's form beside its work tables, so that it outlives a crash: within two seconds
/// of a change, and at once when the session ends. A base that is busy is tried again. No failure of it gets in the way
/// of the person. It has a connection of its own: that of the window tells the person what became of it.
class Resguardo final : public QObject {
  public:
    using Retrato = std::function<SinGrabar()>;

    /// `retrato` tells how the form stands; who, where and when is put to it. Over one that is only looked at there is
    /// nothing to keep.
    Resguardo(const Proceso& proceso, Retrato retrato, bool hayQueGuardar);

    /// Something in the form has changed.
    void Anota();
    /// So has the detail, or it is about to.
    void AnotaDetalle();
    /// The same, and it is written at once: an import begins, or has ended.
    void EscribeDetalle();
    /// What has changed is written at once.
    void EscribeYa();
    /// There is nothing more to keep: it was saved, or left on purpose.
    void Quita();

  private:
    void Escribe();
    void Intenta();
    [[nodiscard]] Base& SuBase();

    const Proceso& m_proceso;
    Retrato m_retrato;
    bool m_hayQueGuardar;
    std::optional<Proceso> m_aparte;
    QTimer m_plazo;
    QString m_ultimo; ///< what was written last
    bool m_falta = false;
};

} // namespace xa518
