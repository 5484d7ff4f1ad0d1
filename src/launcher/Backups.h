#pragma once

#include "family/FormDescription.h"
#include "values/Message.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

namespace xa518 {

class Avance;
class Base;
class Reloj;
struct Firma;

/// A copy of the base as it stood at a moment.
struct Respaldo {
    QString ruta;
    QDateTime fecha;
    qint64 bytes = 0;
};

/// The dated copies of the base, in a folder of their own. A copy holds what one moment of the base held, whoever was
/// writing meanwhile, and it is read through before it counts as one.
class Respaldos {
  public:
    /// As many as are kept; a further one takes the place of the oldest.
    static constexpr qsizetype kConservados = 20;

    /// The forms are those whose tables and numbers a restored base gets.
    Respaldos(QString rutaBase, QString carpeta, const Reloj& reloj, Formularios formularios);

    /// Makes a copy and returns its full name. Raises `Error` or `Detenido`, and then the folder is as it was.
    [[nodiscard]] QString Haz(Avance& avance) const;

    /// The newest first.
    [[nodiscard]] QList<Respaldo> Lista() const;

    /// Puts a copy in the base's place, whole or not at all; one of an earlier version gets the tables of this one.
    /// What stood there is kept first: as one more copy, or byte by byte when it can't be read any more. Refused for a
    /// file that is no sound base of these programs, and while another program uses the base. Numbers of sendings, the
    /// register of reports and the log of changes don't go back with it. Raises `Error`, `TrabajoAjeno` among them, and
    /// as long as nothing has changed `Detenido`.
    [[nodiscard]] Veredicto Restaura(const QString& archivo, const Firma& firma, Avance& avance) const;

    /// What the engine finds wrong in the base, a line for each thing; nothing in a sound one.
    [[nodiscard]] static QStringList Defectos(Base& base);

    [[nodiscard]] const QString& Carpeta() const { return m_carpeta; }

  private:
    [[nodiscard]] const QString& Extension() const;
    [[nodiscard]] Veredicto RestauraArchivo(const QString& archivo, const Firma& firma, Avance& avance) const;
    [[nodiscard]] Veredicto RestauraEnServidor(const QString& archivo, const Firma& firma, Avance& avance) const;
    void ConservaLoNumeradoEnServidor(const QString& nueva, bool seAbre) const;
    [[nodiscard]] QString NombreLibre(const QString& extension) const;
    [[nodiscard]] Veredicto ExigeLibre() const;
    /// A copy, without taking an older one's place.
    [[nodiscard]] QString HazUna(Avance& avance) const;
    /// Keeps the base as it is, if need be byte by byte; returns the name that its remains have now.
    [[nodiscard]] QString GuardaLoQueHay(Avance& avance) const;
    void ConservaLoNumerado(const QString& nueva, const QString& guardado) const;
    void QuitaSobrantes(const QString& reciente) const;

    QString m_rutaBase;
    QString m_carpeta;
    const Reloj* m_reloj;
    Formularios m_formularios;
};

/// How many there are, "3 defectos". What each is, in the engine's words, goes to the standard error.
[[nodiscard]] QString CuentaDefectos(const QStringList& defectos);

} // namespace xa518
