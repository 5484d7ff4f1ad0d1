#pragma once

#include "detail/PerceptionRate.h"

#include <QObject>

class QLabel;
class QButtonGroup;
class QRadioButton;

namespace xa518 {

/// The two options of a question, 0 "No" and 1 "Si". With the focus on either, S and N answer it.
class ParDeOpciones : public QObject {
    Q_OBJECT
  public:
    struct Opciones {
        QRadioButton& no;
        QRadioButton& si;
    };

    ParDeOpciones(const QLabel& pregunta, const Opciones& opciones);

    [[nodiscard]] Contestacion Respuesta() const;
    /// Answers it as a click does: nothing happens when that is the answer already.
    void Contesta(bool si);
    /// By the texts of the tables: "1" yes, "0" no, anything else leaves it open.
    void Contesta(const QString& codigo);
    /// Takes the answer away, without a word.
    void Borra();
    void Activa(bool activo);

    bool eventFilter(QObject* objeto, QEvent* evento) override;

  Q_SIGNALS:
    void Contestada(int indice);

  private:
    QButtonGroup* m_grupo;
    QRadioButton* m_no;
    QRadioButton* m_si;
};

} // namespace xa518
