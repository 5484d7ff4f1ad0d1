#pragma once

#include <QHash>
#include <QString>

class QFile;

namespace xa518 {

class Base;

/// The texts of the print-outs where several machines work on one base, so that each of them can show what another one
/// wrote: the file is a local copy. On a file base there are none, and none of these does anything.
class TextosDeInformes {
  public:
    explicit TextosDeInformes(Base& base) : m_base(&base) {}

    /// Keeps what was written to a spool file. Raises `Error`.
    void Guarda(const QString& carpeta, const QString& archivo);
    /// The same within a transaction that is open already. Returns whether the base has the text now: a file that is
    /// missing, or holds no text, isn't kept.
    [[nodiscard]] bool Agrega(const QString& carpeta, const QString& archivo);
    /// Whether a file holds to the letter what the base keeps under that name.
    [[nodiscard]] bool EsIgual(const QFile& copia, const QString& archivo) const;
    /// How many pages they have, by the names of their files in capitals.
    [[nodiscard]] QHash<QString, int> Hojas() const;
    /// Sees to it that the folder has the file as it was written, and returns its name: another one when a file of that
    /// name holds something else, which was there before. Raises `Error`.
    [[nodiscard]] QString Trae(const QString& carpeta, const QString& archivo) const;
    void Elimina(const QString& archivo);

  private:
    [[nodiscard]] bool Hay() const;
    [[nodiscard]] QString SumaDe(const QString& archivo) const;
    void Inserta(const QString& carpeta, const QString& archivo);
    void Escribe(QFile& salida, const QString& archivo) const;

    Base* m_base;
};

} // namespace xa518
