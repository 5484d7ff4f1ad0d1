#include "import/FileSurvey.h"
#include "import/LineFields.h"
#include "import/LineReader.h"

#include <QBuffer>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace xa518;

namespace {

/// A whole file: looked through, cut into lines and those into fields. No byte may be lost or come twice.
void Lee(const QByteArray& bytes) {
    QBuffer archivo;
    archivo.setData(bytes);
    archivo.open(QIODevice::ReadOnly);
    const Revision revision = RevisaArchivo(archivo, 2);
    LectorLineas lector(archivo);
    QStringList campos;
    qint64 leidos = 0;
    while (lector.Siguiente() == LectorLineas::Lectura::Linea) {
        const bool avanza = lector.BytesLeidos() > leidos;
        leidos = lector.BytesLeidos();
        SeparaCampos(Decodifica(lector.Linea(), revision.codificacion), 18, campos);
        if (!avanza || lector.Linea().contains('\n') || campos.size() > 18)
            std::abort();
    }
    if (revision.defecto == Defecto::Ninguno && revision.bytes != bytes.size())
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t largo) {
    Lee(QByteArray(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(largo)));
    return 0;
}
