#pragma once

#include "family/FormDescription.h"

#include <QList>
#include <QString>

#include <optional>

namespace xa518 {

class Base;

/// A report as table `SPOOL` registers it.
struct InformeRegistrado {
    QString codigo;
    QString titulo; ///< the code for a report of a form that isn't known
    QString secuencia;
    QString archivo; ///< without folder
    QString fecha;   ///< as it is registered
    QString usuario;
    QString ruc;
    std::optional<int> hojasEnLaBase{}; ///< where its text is kept there too

    /// dd/mm/yyyy hh:mm
    [[nodiscard]] QString FechaMostrada() const;
    /// The pages of its text in the base, or of its file in that folder; nothing when both are missing.
    [[nodiscard]] std::optional<int> Hojas(const QString& carpeta) const;
};

/// The register of reports and their files, which lie in one folder.
class Informes {
  public:
    /// The forms name their reports.
    Informes(Base& base, QString carpeta, Formularios formularios)
        : m_base(&base), m_carpeta(std::move(carpeta)), m_formularios(std::move(formularios)) {}

    /// The newest first.
    [[nodiscard]] QList<InformeRegistrado> Lista() const;

    /// Removes the row and the file; when the file can't go the row stays too. Raises `Error`.
    void Elimina(const InformeRegistrado& informe);

  private:
    [[nodiscard]] QString Titulo(const QString& codigo) const;

    Base* m_base;
    QString m_carpeta;
    Formularios m_formularios;
};

} // namespace xa518
