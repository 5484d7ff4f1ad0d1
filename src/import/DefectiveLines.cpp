#include "import/DefectiveLines.h"

#include "import/LineReader.h"
#include "import/RefusedLine.h"
#include "import/RunMessages.h"
#include "values/Text.h"

#include <functional>

namespace xa518 {

namespace {

/// False at a line that is no line.
bool Recorre(QIODevice& archivo, const std::function<void(QByteArrayView linea, qint64 numero)>& mira) {
    LectorLineas lector(archivo, kLargoCorregible);
    for (qint64 numero = 1;; ++numero) {
        switch (lector.Siguiente()) {
        case LectorLineas::Lectura::Fin: return true;
        case LectorLineas::Lectura::DemasiadoLarga: return false;
        case LectorLineas::Lectura::Linea: mira(lector.Linea(), numero);
        }
    }
}

} // namespace

void ReuneDefectuosas(QIODevice& archivo, int separadores, ReceptorDeRechazadas& receptor) {
    Codificacion codificacion = Codificacion::Utf8;
    const auto mideCodificacion = [&](QByteArrayView linea, qint64 /*numero*/) {
        if (!EsUtf8Valido(linea))
            codificacion = Codificacion::Windows1252;
    };
    if (!Recorre(archivo, mideCodificacion))
        return receptor.Desiste();
    const auto entrega = [&](QByteArrayView linea, qint64 numero) {
        const Defecto defecto = DefectoDeLinea(linea, separadores);
        if (defecto != Defecto::Ninguno)
            receptor.Recibe({numero, linea, codificacion, {{}, -1, MotivoDeLinea(defecto, separadores)}});
    };
    (void)Recorre(archivo, entrega);
}

} // namespace xa518
