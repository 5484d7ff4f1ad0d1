#pragma once

#include "declaration/Declaration.h"
#include "declaration/OrderNumber.h"
#include "declaration/TaxPeriod.h"
#include "widgets/FieldFocus.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class PagIdentificacion;
}

namespace xa518 {

struct DeclaracionElegida;
struct DeclaranteOfrecido;

/// The page "Identificación": declarant, period, rectification, and of a sent copy its control and order numbers.
class PagIdentificacion : public QWidget {
    Q_OBJECT
  public:
    explicit PagIdentificacion(QWidget* padre = nullptr);
    ~PagIdentificacion() override;

    /// Shows what belongs to a new declaration, to one that exists, or to a sent copy, which can't be changed.
    /// `usuario` is whose declarants they are.
    void MuestraNueva(const QList<DeclaranteOfrecido>& declarantes, const QString& usuario);
    void MuestraElegida(const DeclaracionElegida& elegida);
    /// Of a new declaration that is taken up again: the declarant that was chosen, if any, also where he isn't among
    /// those that are offered any more, and the period as it stood in its field.
    void Retoma(const DeclaracionElegida& elegida, const QString& periodo);
    void MuestraEnviada(const DeclaracionElegida& elegida);

    /// What the rules look at.
    [[nodiscard]] Identificacion Lee() const;
    [[nodiscard]] QString Nombre() const;

    /// Chooses them in a new declaration as a person does; false when that declarant isn't offered.
    [[nodiscard]] bool PonClave(const ClaveDeclaracion& clave);
    /// From here on the key of a new declaration stays.
    void CongelaClave();
    /// Nothing of it may be changed.
    void DejaDeCambiar();

    [[nodiscard]] Rectificacion Rectifica() const;
    /// Without an answer the options stay as they are.
    void PonRectifica(Rectificacion rectifica);

    [[nodiscard]] NumeroDeOrden Orden(const QString& control) const;
    /// "0" stands for none yet and shows empty.
    void PonOrden(const QString& numero);
    void PonDigitos(const QString& digitos);

    /// Puts the focus on a field that a rule names, if it is enabled.
    void Enfoca(CampoDeclaracion campo);
    /// Where a sent copy's number is typed, when that can be seen.
    void EnfocaOrden();

    /// The leave handler of the period field.
    void AlDejarPeriodo(std::function<Salida()> manejador);

  Q_SIGNALS:
    /// The declarant of a new declaration was chosen.
    void DeclaranteElegido(const QString& nombre); ///< the whole name, which the field cuts
    void RazonCambiada();
    void RectificaElegida(bool si);
    /// The person changed something; also by a key that was rejected.
    void Tocado();

  protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

  private:
    void ConectaCampos();
    void PonAnchos();
    void AvisaSinDeclarantes(const QString& usuario);
    void EligeDeclarante();

    std::unique_ptr<Ui::PagIdentificacion> m_ui;
    bool m_nueva = false;
};

} // namespace xa518
