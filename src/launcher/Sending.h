#pragma once

#include "family/DeclarationKey.h"
#include "family/FormDescription.h"
#include "values/Message.h"

#include <QString>

namespace xa518 {

class Base;
struct Firma;

/// What every answer to a sending says, lest the person takes the word at its face.
inline const QString kNadaSeTransmite =
    QStringLiteral("No se transmite nada: hay que presentarla a ZOLMA por su propio canal.");

/// What a refusal of a sending names: the answer whether the declaration rectifies another.
enum class CampoDeEnvio { Rectifica };
using VeredictoDeEnvio = VeredictoDe<CampoDeEnvio>;

/// The number of a sent copy and the control number of its sending, or why it can't be sent.
struct ResultadoEnvio {
    VeredictoDeEnvio veredicto = Veredicto::Bien();
    QString correl{};
    QString control{};
};

/// Whether a declaration can be sent, and the copy beside which it would be another original, if any.
struct RevisionEnvio {
    VeredictoDeEnvio veredicto;
    QString original;
};

/// Whether a month that was sent may be sent once more by a declaration that doesn't say that it rectifies another.
enum class OtroOriginal { Rechazado, Admitido };

/// Sends a registered declaration: its rows move to the tables of the sent ones, and nothing is transmitted. Both ways
/// raise `TrabajoAjeno` while another program has a declaration open: it would be saved again as one more original.
class Envio {
  public:
    /// Of a declaration of one of these forms.
    Envio(Base& base, Formularios formularios) : m_base(&base), m_formularios(std::move(formularios)) {}

    /// Refused when there is no such declaration, or when it was saved with inconsistencies, or at its answer about
    /// rectifying for another original that isn't admitted.
    [[nodiscard]] VeredictoDeEnvio Valida(const ClaveDeclaracion& clave, OtroOriginal otro) const;

    /// One transaction, which asks the same once more, and notes it.
    [[nodiscard]] ResultadoEnvio Envia(const ClaveDeclaracion& clave, OtroOriginal otro, const Firma& firma);

    /// The number of the copy by which the month was sent last, if the registered declaration doesn't say that it
    /// rectifies another; otherwise empty.
    [[nodiscard]] QString OriginalYaEnviado(const ClaveDeclaracion& clave) const;

  private:
    [[nodiscard]] ResultadoEnvio EnviaUnaVez(const ClaveDeclaracion& clave, OtroOriginal otro, const Firma& firma);
    [[nodiscard]] VeredictoDeEnvio Revisa(const ClaveDeclaracion& clave, OtroOriginal otro) const;

    Base* m_base;
    Formularios m_formularios;
};

} // namespace xa518
