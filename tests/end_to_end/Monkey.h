#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QMap>
#include <QPointer>
#include <QRandomGenerator>
#include <QString>
#include <QWidget>

class QAction;

namespace xa518::prueba {

/// Keys, clicks, wheel and pastes at random on whatever form is in front. MONO_SEGUNDOS says for how long, MONO_SEMILLA
/// which chance, and MONO_DIARIO names a file that keeps what was done.
class Mono {
  public:
    Mono();

    /// Whether there is time left; it runs from the first call on.
    [[nodiscard]] bool Sigue();
    /// Plays until the window is closed or the time is over; then every form over it goes.
    void Juega(QWidget& ventana, const QList<QAction*>& ordenes);

    [[nodiscard]] quint32 Azar(qsizetype hasta) { return m_azar.bounded(static_cast<quint32>(hasta)); }
    [[nodiscard]] int Pasos() const { return m_pasos; }
    /// How many steps each form has stood.
    [[nodiscard]] QString Informe() const;

  private:
    void Paso();
    void Actua(QWidget& forma);
    void Teclea(QWidget& campo);
    void Raton(QWidget& campo);
    void Rueda(QWidget& campo);
    void Pega(QWidget& campo);
    void Ordena();
    [[nodiscard]] QWidget* Enfrente() const;
    [[nodiscard]] QWidget* Campo(QWidget& forma);
    void Anota(const QString& hecho, const QWidget& donde) const;

    QRandomGenerator m_azar;
    QElapsedTimer m_reloj;
    qint64 m_plazo;
    QString m_diario;
    QPointer<QWidget> m_ventana;
    QList<QAction*> m_ordenes;
    QMap<QString, int> m_formas;
    int m_pasos = 0;
};

} // namespace xa518::prueba
