#pragma once

#include "family/FormDescription.h"
#include "launcher/ReportMove.h"
#include "platform/ProfileFile.h"
#include "values/Error.h"
#include "values/Message.h"

#include <QString>
#include <QStringList>

namespace xa518 {

class Avance;
class Base;
struct Firma;

/// What a move has carried.
struct BaseMudada {
    qint64 tablas = 0;
    qint64 filas = 0;
    InformesMudados informes{};
    QStringList hecho{}; ///< what was made at the new place for it, a line for each thing
};

/// A base can't be moved out of or into: somebody works in it, or a table of it already holds something.
class BaseEnUso : public Error {
  public:
    explicit BaseEnUso(const QString& base);
    BaseEnUso(const QString& base, const QString& tabla);
};

/// What to tell of a move that is done, for people.
[[nodiscard]] QString TextoDeMudanza(const BaseMudada& mudada, const QString& origen, const QString& destino);

/// Carries a whole base from a file to a server, or from a server to a file, and then has the profile file name the new
/// place. The old base stays as it is. All goes in one transaction of the new base, which ends only when every table
/// there has the rows of the old one, in the same order, with the same checksums, and the texts of the print-outs have
/// gone along: stopped or failed before, profile and old base are what they were.
class Mudanza {
  public:
    /// `origen` and `destino` each as `Base::Abre` takes them, a file by its full name; `carpetaInformes` is where the
    /// print-outs of this machine lie.
    Mudanza(QString origen, QString destino, QString carpetaInformes, ArchivoPerfil perfil, Formularios formularios);

    /// The places are such that a move between them makes sense, and nobody works in the old one.
    [[nodiscard]] Veredicto Valida() const;

    /// Raises `Detenido` when it is stopped, `TrabajoAjeno` or another `Error` when somebody works in either base, the
    /// new one holds something already, or a table doesn't come out equal.
    [[nodiscard]] BaseMudada Muda(const Firma& firma, Avance& avance) const;

  private:
    [[nodiscard]] Veredicto ValidaArchivo() const;
    [[nodiscard]] BaseMudada MudaAServidor(Base& origen, const Firma& firma, Avance& avance) const;
    [[nodiscard]] BaseMudada MudaAArchivo(Base& origen, const Firma& firma, Avance& avance) const;
    [[nodiscard]] BaseMudada Copia(Base& origen, Base& destino, const QStringList& tablas, const Firma& firma,
                                   Avance& avance) const;
    void EscribePerfil() const;

    QString m_origen;
    QString m_destino;
    QString m_carpetaInformes;
    ArchivoPerfil m_perfil;
    Formularios m_formularios;
};

} // namespace xa518
