#include "import/FileSurvey.h"

#include "import/LineReader.h"
#include "support/Test.h"
#include "values/Error.h"

#include <QBuffer>

#include <algorithm>

namespace {

/// Hands out few bytes at a time, so that every boundary between two reads falls somewhere in a line.
class Goteo final : public QIODevice {
  public:
    Goteo(QByteArray bytes, qint64 sorbo) : m_bytes(std::move(bytes)), m_sorbo(sorbo) { open(ReadOnly | Unbuffered); }

  protected:
    qint64 readData(char* destino, qint64 largo) override {
        const QByteArray trozo = m_bytes.mid(pos(), std::min(largo, m_sorbo));
        std::copy(trozo.begin(), trozo.end(), destino);
        return trozo.size();
    }
    qint64 writeData(const char* /*bytes*/, qint64 /*largo*/) override { return -1; }

  private:
    QByteArray m_bytes;
    qint64 m_sorbo;
};

QByteArrayList Lineas(const QByteArray& bytes, qint64 sorbo) {
    Goteo archivo(bytes, sorbo);
    LectorLineas lector(archivo);
    QByteArrayList lineas;
    while (lector.Siguiente() == LectorLineas::Lectura::Linea)
        lineas.append(lector.Linea().toByteArray());
    lineas.append(QByteArray::number(lector.BytesLeidos()));
    return lineas;
}

TEST(LineReader, EndsOfLines) {
    const QList<std::pair<QByteArray, QByteArrayList>> casos = {
        {"", {"0"}},
        {"\n", {"", "1"}},
        {"a\nb\n", {"a", "b", "4"}},
        {"a\r\nb", {"a", "b", "4"}},
        {"a\n\nb\n\n", {"a", "", "b", "", "6"}},
        {"a\rb\r\n", {"a\rb", "5"}},
        {"\xEF\xBB\xBF"
         "a\n",
         {"a", "5"}},
        {"\xEF\xBB\xBF", {"3"}},
        {QByteArray("a\0b\n", 4), {QByteArray("a\0b", 3), "4"}},
        {"a\r\n\x1A", {"a", "4"}},
        {"a\nb\x1A\x1A", {"a", "b", "5"}},
        {"a\x1A\nb", {"a\x1A", "b", "4"}},
    };
    for (const auto& [bytes, lineas] : casos) {
        EXPECT_EQ(Lineas(bytes, 4096), lineas) << bytes.toStdString();
        EXPECT_EQ(Lineas(bytes, 3), lineas) << bytes.toStdString();
    }
}

TEST(LineReader, LinesUpToTheLimitPassAtAnyPlaceOfTheBuffer) {
    const QByteArray justa(LectorLineas::kLargoMaximo, 'x');
    EXPECT_EQ(Lineas("corta\n" + justa + "\r\n" + justa + "\n" + justa, 1000).size(), 5);
    for (const char* const fin : {"x", "x\n", "x\r\n"}) {
        Goteo archivo("corta\n" + justa + fin, 1000);
        LectorLineas lector(archivo);
        EXPECT_EQ(lector.Siguiente(), LectorLineas::Lectura::Linea);
        EXPECT_EQ(lector.Siguiente(), LectorLineas::Lectura::DemasiadoLarga);
    }
}

TEST(FileSurvey, WhatBarsAFileAndHowItIsEncoded) {
    using enum Defecto;
    using enum Codificacion;
    struct Archivo {
        QByteArray bytes;
        Defecto defecto;
        Codificacion codificacion = Utf8;
        QList<qint64> donde{0, 0, 0}; ///< first line, its fields, lines
    };
    const auto utf16 = [](const QString& texto) {
        return QByteArray(reinterpret_cast<const char*>(texto.utf16()), texto.size() * 2);
    };
    const QByteArray larga = QByteArray(LectorLineas::kLargoMaximo, 'x') + "||\n";
    const QList<Archivo> casos = {
        {"", Ninguno},
        {"a|b|\nc|d|  \n", Ninguno},
        {"\xC3\xB1||\nb|c|", Ninguno},
        {"\xC3\xB1||\n\xF1||\n", Ninguno, Windows1252}, // one encoding for the whole file
        {"\xC3||\n", Ninguno, Windows1252},
        {"a|b|\na|\n", Separadores, Utf8, {2, 1, 1}},
        {"a|b|\na|b|c|\n", Separadores, Utf8, {2, 3, 1}},
        {"a|b|\n\na|b|\n   \n", Separadores, Utf8, {2, 0, 2}},
        {"a|b|c\na|b|\na|b|c\n", SinSeparadorFinal, Utf8, {1, 2, 2}},
        {"a|b|\t\n", SinSeparadorFinal, Utf8, {1, 2, 1}},
        {"a|b|c\na|\na|b|c\n", Separadores, Utf8, {2, 1, 1}},
        {"a|\n" + larga, Separadores, Utf8, {1, 1, 1}},
        {"a|b|c\n" + larga, LineaDemasiadoLarga, Utf8, {2, kSinContar, 1}},
        {utf16(u"1|ñ|\n"_s), Utf16},
        {'\0' + utf16(u"1|45678901|\n"_s), Utf16},
        {utf16(u"\uFEFFañ"_s), Utf16},
        {"\xFE\xFF", Utf16},
    };
    for (const auto& [bytes, defecto, codificacion, donde] : casos) {
        QBuffer archivo;
        archivo.setData(bytes);
        ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
        const Revision revision = RevisaArchivo(archivo, 2);
        EXPECT_EQ(revision.defecto, defecto) << bytes.left(40).toStdString();
        EXPECT_EQ(revision.codificacion, codificacion) << bytes.left(40).toStdString();
        EXPECT_EQ(QList({revision.linea, revision.campos, revision.lineas}), donde) << bytes.left(40).toStdString();
    }
}

} // namespace
