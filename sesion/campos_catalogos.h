#pragma once
// Columnas de los catálogos que varias pantallas leen por una misma sentencia de los módulos de
// datos: se definen una vez, con su largo y su rótulo, para quien los mantiene y para quien escoge.
class ConjuntoDatos;
class QString;

void campos_tipos_comprobante(ConjuntoDatos& c); ///< TTipocomp
void campos_prefijos(ConjuntoDatos& c);          ///< TPrefconta y QPrefijos
/// Los prefijos con que se puede numerar un comprobante de ese tipo.
QString sql_prefijos_activos(const QString& tipo);
void campos_documentos(ConjuntoDatos& c); ///< TTipodoc
void campos_proyectos(ConjuntoDatos& c);  ///< TProyectos
void campos_centros(ConjuntoDatos& c);    ///< TCentros
void campos_agencias(ConjuntoDatos& c);   ///< TSubEmpresa
/// TConceptoconta. Las listas de los comprobantes dan seis caracteres al código.
void campos_categorias(ConjuntoDatos& c, int largo_codigo = 4);
void campos_ciudades(ConjuntoDatos& c);           ///< TCiudades
void campos_paises(ConjuntoDatos& c);             ///< TPaises
void campos_documentos_tercero(ConjuntoDatos& c); ///< TDocsterc
void campos_articulos(ConjuntoDatos& c);          ///< QArticulos: código y descripción
