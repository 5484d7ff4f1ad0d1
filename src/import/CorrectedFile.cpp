#include "import/CorrectedFile.h"

#include "import/Correction.h"
#include "import/DefectiveLines.h"
#include "import/LineReader.h"
#include "values/FileFailure.h"
#include "values/Text.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QByteArray EnWindows1252(const QString& texto, qint64 numero) {
    QByteArray bytes(texto.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < texto.size(); ++i) {
        const int codigo = CodigoWindows1252(texto[i]);
        if (codigo == u'?' && texto[i] != u'?')
            throw Error(
                NumeroError::ArgumentoInvalido,
                u"La línea %1 tiene un carácter que no existe en Windows-1252, en el lugar %2 («%3»). Cámbielo y "
                "guarde otra vez."_s.arg(numero)
                    .arg(i + 1)
                    .arg(texto.mid(i, texto[i].isHighSurrogate() ? 2 : 1)));
        bytes[i] = static_cast<char>(codigo);
    }
    return bytes;
}

class Salida {
  public:
    explicit Salida(const QString& ruta) : m_archivo(ruta) {
        if (!m_archivo.open(QIODevice::WriteOnly))
            throw FallaDeArchivo(Intento::Escribir, m_archivo);
    }
    void Escribe(const QString& linea, qint64 numero) { Escribe(EnWindows1252(linea, numero)); }
    void Escribe(QByteArray linea) {
        linea += "\r\n";
        if (m_archivo.write(linea) != linea.size())
            throw FallaDeArchivo(Intento::Escribir, m_archivo);
    }
    void Confirma() {
        if (!m_archivo.commit())
            throw FallaDeArchivo(Intento::Escribir, m_archivo);
    }

  private:
    QSaveFile m_archivo;
};

void EscribeUna(const Correccion& correccion, int cual, Salida& salida) {
    if (correccion.Estado(cual) != EstadoDeLinea::Importada)
        salida.Escribe(correccion.Texto(cual), correccion.Numero(cual));
}

Error OriginalCambiado(const QString& ruta) {
    return {NumeroError::AccesoAlDisco,
            u"El archivo ha cambiado desde que se revisó: %1\nPruébelo otra vez."_s.arg(ruta)};
}

void EscribeEntre(const Correccion& correccion, QFile& original, Salida& salida) {
    const LineasRechazadas& rechazadas = correccion.Originales();
    LectorLineas lector(original, kLargoCorregible);
    int cual = 0;
    for (qint64 numero = 1; lector.Siguiente() == LectorLineas::Lectura::Linea; ++numero) {
        const bool esta = cual < correccion.Cuantas() && correccion.Numero(cual) == numero;
        if (!esta) {
            salida.Escribe(Decodifica(lector.Linea(), rechazadas.CodificacionDelArchivo()), numero);
            continue;
        }
        if (rechazadas.Bytes(cual) != lector.Linea())
            throw OriginalCambiado(original.fileName());
        EscribeUna(correccion, cual++, salida);
    }
    if (cual != correccion.Cuantas())
        throw OriginalCambiado(original.fileName());
}

} // namespace

void GuardaCorregido(Correccion& correccion, const QString& ruta) {
    if (!correccion.Original().isEmpty() && QFileInfo(correccion.Original()) == QFileInfo(ruta))
        correccion.ConservaOriginal();
    QFile original(correccion.Original());
    const bool entre = !correccion.Original().isEmpty();
    if (entre && !original.open(QIODevice::ReadOnly))
        throw FallaDeArchivo(Intento::Leer, original);
    Salida salida(ruta);
    if (entre)
        EscribeEntre(correccion, original, salida);
    for (int cual = 0; !entre && cual < correccion.Cuantas(); ++cual)
        EscribeUna(correccion, cual, salida);
    salida.Confirma();
}

} // namespace xa518
