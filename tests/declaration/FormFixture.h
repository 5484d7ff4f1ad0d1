#pragma once

#include "declaration/Frm518.h"
#include "family/Process.h"
#include "form518/Form0518.h"
#include "platform/Clock.h"
#include "support/FormDriver.h"
#include "support/TemporaryBase.h"
#include "widgets/StatusBar.h"

#include <functional>
#include <memory>

namespace xa518::prueba {

inline const QString kRucDeclarante = QStringLiteral("20990518018");

inline const QString kLimpia = u"Toda la información de la declaración fue grabada satisfactoriamente."_s;
inline const QString kModificado = u"¿El formulario ha sido modificado, desea guardar los cambios?"_s;

/// The declaration form over a real base with two declarants, a catalogue, and what a person does with it: keys and
/// clicks only.
class ConFormulario : public testing::Test {
  protected:
    void SetUp() override;

    void AbreNueva();
    void AbreRegistrada();
    /// What the form before it has left unsaved.
    void AbreRetomada();
    /// Makes the registered declaration a sent copy, with that order number, and opens it.
    void AbreEnviada(const QString& norden = QStringLiteral("0"));

    template <typename T = QLineEdit>
    [[nodiscard]] T& Control(const QString& nombre) {
        return De<T>(*m_forma, nombre);
    }
    [[nodiscard]] QString Texto(const QString& nombre) { return Control<>(nombre).text(); }
    [[nodiscard]] QString ConFoco() const;

    void EligeDeclarante(int fila);
    void Teclea(const QString& campo, const QString& texto);
    void Pulsa(const QString& boton) { Clic(*m_forma, boton); }
    void VaAPestania(int indice);
    /// Declarant and period of the usual new declaration.
    void Identifica();
    void Paga(const QString& monto);
    /// "&Nuevo" on the page of the detail, with a client dialog that enters this client by itself.
    void AgregaCliente(int tipo, const QString& numero, const QString& percepcion);
    /// A clean declaration of one client, saved through the form.
    void GrabaUna();

    BaseTemporal m_base;
    RelojFijo m_reloj{QDateTime(QDate(2026, 11, 21), QTime(10, 0))};
    Proceso m_proceso{m_reloj, {Formulario0518()}, kNumFormulario};
    AvisosDePrueba m_avisos;
    BarradeEstadoQMD m_barra;
    DialogosDeDetalle m_dialogos;
    std::unique_ptr<Frm518> m_forma;

  private:
    std::function<void()> m_alAgregar;
    void Abre(const std::optional<DeclaracionElegida>& elegida = {});
    [[nodiscard]] static DeclaracionElegida LaRegistrada();
};

} // namespace xa518::prueba
