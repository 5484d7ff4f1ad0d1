#pragma once

#include "widgets/FieldFocus.h"

#include <QObject>

namespace xa518 {

/// What `AlEntrar` and `AlSalir` hang on a field: one object per field. Only for the code beside it.
class FocoDeCampo final : public QObject {
    Q_OBJECT
  public:
    [[nodiscard]] static FocoDeCampo* Busca(const QWidget& campo);
    [[nodiscard]] static FocoDeCampo& De(QWidget& campo);

    bool eventFilter(QObject* objeto, QEvent* evento) override;

    /// How the field was last left. While it has the focus: whether it has kept it.
    [[nodiscard]] Salida Ultima() const { return m_ultima; }

    QList<std::function<void()>> alEntrar;
    QList<std::function<Salida()>> alSalir;

  private:
    explicit FocoDeCampo(QWidget& campo);
    [[nodiscard]] bool SeVa() const;
    void Entra();
    void Sale();
    void Vuelve();

    QWidget* m_campo;
    bool m_dentro = false;
    Salida m_ultima = Salida::Libre;
};

} // namespace xa518
