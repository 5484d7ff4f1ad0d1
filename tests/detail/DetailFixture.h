#pragma once

#include "data/Base.h"
#include "detail/DetailContext.h"
#include "family/Process.h"
#include "form518/Form0518.h"
#include "platform/Clock.h"
#include "support/FormDriver.h"
#include "support/TemporaryBase.h"

namespace xa518::prueba {

inline const QString kEmpresa = QStringLiteral("20500000008");
inline const QString kGuardar = QStringLiteral("La información ha sido modificada. ¿Desea guardar los cambios?");
inline const QString kSinComprobantes =
    QStringLiteral("No hay comprobantes. Si sale se borrará este registro. ¿Esta Seguro?");

/// An open declaration in which clients are entered by hand.
class DetailTest : public testing::Test {
  protected:
    explicit DetailTest(const QString& periodo = QStringLiteral("202610"));

    /// Types into whatever has the focus; "\r" is Enter, "\b" Backspace.
    void Teclea(const QString& teclas);
    void Pulsa(Qt::Key tecla, Qt::KeyboardModifiers con = Qt::NoModifier);

    /// A field that is gone to first, or none; what is typed there, from its beginning; what is said by the end, one
    /// message a line; and where the focus goes.
    struct Paso {
        QString campo, teclas, mensajes, foco;
        Icono icono = Icono::Critico;
    };
    /// Takes each step and presses the button after it. No message takes away anything that was typed.
    void Sube(QWidget& forma, const QString& boton, const QList<Paso>& pasos);
    /// The base's file is moved away, or the connection to its server cut: whatever the button does is told, and the
    /// form stays with what was typed.
    void SinBase(QWidget& forma, const QString& boton);
    [[nodiscard]] static QString Foco();

    BaseTemporal m_base;
    RelojFijo m_reloj{QDateTime(QDate(2026, 10, 20), QTime(10, 0))};
#include "data/Base.h"
#include "detail/DetailContext.h"
    AvisosDePrueba m_avisos;
    std::unique_ptr<Base> m_abierta = Base::Abre(m_base.Ruta()); ///< the module's own
    EntornoDetalle m_entorno{*m_abierta, m_avisos, m_reloj, Ruc(u"20990518018"), {}, Periodo(2099, 12)};
};

} // namespace xa518::prueba
