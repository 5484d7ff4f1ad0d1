#include "reports/PartialFile.h"

#include "platform/TakePlace.h"
#include "values/FileFailure.h"

namespace xa518 {

using namespace Qt::StringLiterals;

ArchivoParcial::ArchivoParcial(const QString& ruta) : m_ruta(ruta), m_archivo(ruta + u".parcial"_s) {
    if (!m_archivo.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw Falla();
}

ArchivoParcial::~ArchivoParcial() {
    m_archivo.remove();
}

void ArchivoParcial::Escribe(const QByteArray& bytes) {
    if (m_archivo.write(bytes) != bytes.size())
        throw Falla();
}

void ArchivoParcial::Confirma() {
    if (!m_archivo.flush())
        throw Falla();
    m_archivo.close();
    if (!TomaElLugar(m_archivo.fileName(), m_ruta))
        throw FallaDeArchivo(Intento::Escribir, m_ruta);
}

Error ArchivoParcial::Falla() const {
    return FallaDeArchivo(Intento::Escribir, m_ruta, m_archivo);
}

} // namespace xa518
