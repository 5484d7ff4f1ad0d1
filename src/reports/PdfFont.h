#pragma once

#include <QByteArray>
#include <QRawFont>
#include <QStringView>

#include <vector>

namespace xa518 {

class DocumentoPdf;

/// The letter of the reports in a PDF. It numbers the characters as they come, and so takes into the file what is used
/// of the letter and no more.
class LetraPdf {
  public:
    /// Raises `Error` (`ArgumentoInvalido`) when the installed letter can't be put into a PDF.
    explicit LetraPdf(bool negrita);

    /// Adds a text as a string of a page's contents. A character that the letter lacks shows as its empty box.
    void AgregaCadena(QByteArray& contenido, QStringView texto);
    /// Writes the letter, with what was used of it, as the object of that number.
    void Escribe(DocumentoPdf& documento, int objeto) const;
    [[nodiscard]] bool EnUso() const { return !m_caracteres.empty(); }

  private:
    [[nodiscard]] quint16 Codigo(QChar c);
    [[nodiscard]] quint16 Numera(QChar c);
    [[nodiscard]] QByteArray Descriptor(int archivo) const;
    [[nodiscard]] QByteArray Anchos() const;
    [[nodiscard]] QByteArray MapaUnicode() const;
    [[nodiscard]] QByteArray Nombre() const;

    QRawFont m_letra;
    bool m_negrita;
    std::vector<quint16> m_codigos;  ///< by character; 0 for one that hasn't come yet
    std::vector<QChar> m_caracteres; ///< in the order in which they came; the codes count from 1
    std::vector<quint32> m_glifos;   ///< of the letter, by code; 0 is the empty box
};

} // namespace xa518
