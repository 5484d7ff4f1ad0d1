#include "reports/SpoolFile.h"

#include "values/FileFailure.h"

namespace xa518 {

namespace {

constexpr qsizetype kBloque = 65'536;

} // namespace

ArchivoSpool::ArchivoSpool(const QString& ruta) : m_archivo(ruta) {
    constexpr auto kSoloDelUsuario = QFile::ReadOwner | QFile::WriteOwner;
    // Text: the line end is the platform's own.
    if (!m_archivo.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text, kSoloDelUsuario))
        throw FallaDeArchivo(Intento::Escribir, m_archivo);
    m_bloque.reserve(kBloque + kBloque / 4);
}

void ArchivoSpool::Recibe(const Comando& comando) {
    AgregaTextoDe(m_bloque, comando);
    if (m_bloque.size() >= kBloque)
        Vierte();
}

void ArchivoSpool::Termina() {
    Vierte();
    if (!m_archivo.flush())
        throw FallaDeArchivo(Intento::Escribir, m_archivo);
    m_archivo.close();
}

void ArchivoSpool::Retira() {
    m_archivo.remove();
}

void ArchivoSpool::Vierte() {
    if (m_archivo.write(m_bloque) != m_bloque.size())
        throw FallaDeArchivo(Intento::Escribir, m_archivo);
    m_bloque.resize(0);
}

} // namespace xa518
