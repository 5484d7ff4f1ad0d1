#pragma once

#include "family/DeclarationKey.h"
#include "family/FormDescription.h"

#include <QMap>
#include <QString>

namespace xa518 {

class Base;
class Registros;

/// The last numbers that the sendings of a form got: of control, and of each declaration's copies. A catalogue of the
/// base keeps them beside the copies themselves, so that none comes twice, not even after its copy is deleted.
class NumerosDeEnvio {
  public:
    /// By argument of the catalogue: the form for the control number, form and declaration for the copy's.
    using Cuenta = QMap<QString, qint64>;

    /// The description must outlive the object.
    NumerosDeEnvio(Base& base, const Formulario& formulario) : m_base(&base), m_formulario(&formulario) {}

    /// Both take the next number for good once the transaction around them is confirmed.
    [[nodiscard]] QString TomaCorrel(const ClaveDeclaracion& clave);
    [[nodiscard]] QString TomaControl();

    [[nodiscard]] Cuenta Dados() const;
    /// What would be given if one more of its registered declarations, whichever, were sent.
    [[nodiscard]] Cuenta DadosTrasOtroEnvio() const;
    /// From here on no number up to these is given.
    void Respeta(const Cuenta& dados);

  private:
    [[nodiscard]] QStringList TablasConCorrel() const;
    [[nodiscard]] QString ArgumentoDe(const Ruc& ruc, const Periodo& periodo) const;
    [[nodiscard]] QString ArgumentoDe(const Registros& fila) const; ///< its first two columns
    [[nodiscard]] qint64 UltimoControl() const;
    [[nodiscard]] qint64 Anotado(const QString& argumento) const;
    void Anota(const QString& argumento, qint64 numero);

    Base* m_base;
    const Formulario* m_formulario;
};

/// The larger of the numbers that either counts.
[[nodiscard]] NumerosDeEnvio::Cuenta Mayores(NumerosDeEnvio::Cuenta una, const NumerosDeEnvio::Cuenta& otra);

} // namespace xa518
