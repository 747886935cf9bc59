#include "herramientas/administracion.h"

#include <QRegularExpression>

namespace {

void exija(bool condicion, const QString& mensaje) {
    if (!condicion)
        throw ErrorDatos(mensaje);
}

bool existe_fecha(Conexion& compania, const QString& fecha) {
    return compania
               .consulte(QStringLiteral("select iif(existe_fecha(?), 1, 0) from rdb$database"),
                         {Valor(fecha)})
               .entero() > 0;
}

bool existe_cuenta(Conexion& compania, bool niif, const QString& cuenta) {
    return compania
               .consulte(
                   niif ? QStringLiteral("select count(*) from cuentas_niif where cuen_cod = ?")
                        : QStringLiteral("select count(*) from cuentas where cuen_cod = ?"),
                   {Valor(cuenta)})
               .entero() > 0;
}

/// Un valor que el programa no sabe leer apaga la regla que lo usa o la cierra para siempre.
void exija_valor(Conexion& compania, const QString& propiedad, const QString& valor) {
    static const QRegularExpression fecha(
        QStringLiteral("^[0-9]{8}$|^[0-9]{4}/[0-9]{2}/[0-9]{2}$")),
        ano(QStringLiteral("^(19|20)[0-9]{2}$"));
    if (valor.isEmpty())
        return;
    if (propiedad.startsWith(QStringLiteral("FECHA DE ")))
        exija(fecha.match(valor).hasMatch() && existe_fecha(compania, QString(valor).remove('/')),
              QStringLiteral("'%1' no es una fecha: escríbala como 20171231 o 2017/12/31, o deje "
                             "vacío el valor para quitarla.")
                  .arg(valor));
    if (propiedad.startsWith(QStringLiteral("AÑO ")))
        exija(ano.match(valor).hasMatch(),
              QStringLiteral("'%1' no es un año de cuatro cifras.").arg(valor));
    if (propiedad.startsWith(QStringLiteral("MES ")))
        exija(valor.toInt() >= 1 && valor.toInt() <= 12,
              QStringLiteral("'%1' no es un mes: son de 1 a 12.").arg(valor));
    if (propiedad.startsWith(QStringLiteral("CUENTA ")))
        exija(existe_cuenta(compania, propiedad.endsWith(QStringLiteral("NIIF")), valor),
              QStringLiteral("La cuenta %1 no existe.").arg(valor));
}

} // namespace

QVector<int> opciones_contabilidad() {
    QVector<int> opciones;
    const std::pair<int, int> tramos[] = {
        {0, 2},     {10, 12},   {20, 20},   {30, 32},   {40, 42},   {50, 51},
        {60, 60},   {70, 73},   {80, 80},   {90, 99},   {100, 105}, {110, 116},
        {120, 123}, {130, 133}, {140, 144}, {150, 153}, {160, 162}};
    for (const auto& [desde, hasta] : tramos)
        for (int i = desde; i <= hasta; ++i)
            opciones.push_back(i);
    return opciones;
}

QString codigo_usuario(const QString& codigo) {
    // Es también el usuario del servidor, que no distingue mayúsculas fuera de comillas.
    static const QRegularExpression forma(QStringLiteral("^[A-Z][A-Z0-9_]{0,9}$"));
    const QString mayusculas = codigo.toUpper();
    exija(forma.match(mayusculas).hasMatch(),
          QStringLiteral("El código de usuario '%1' no es válido: hasta diez letras sin tilde, "
                         "cifras o _, y la primera una letra.")
              .arg(codigo));
    return mayusculas;
}

QString codigo_compania(const QString& codigo) {
    static const QRegularExpression forma(QStringLiteral("^[A-Za-z0-9]{3}$"));
    exija(forma.match(codigo).hasMatch(),
          QStringLiteral("El código de compañía '%1' no es válido: son tres letras o cifras.")
              .arg(codigo));
    return codigo;
}

void registre_compania(Conexion& general, const DatosCompania& d) {
    general.ejecute(QStringLiteral("update or insert into compania (comp_cod, com_nombre, comp_nit,"
                                   " comp_dir, comp_tels, comp_encabezado) values (?,?,?,?,?,?)"
                                   " matching (comp_cod)"),
                    {Valor(codigo_compania(d.codigo)), Valor(d.nombre), Valor(d.nit),
                     Valor(d.direccion), Valor(d.telefonos), Valor(d.encabezado)});
}

void registre_logo(Conexion& general, const QString& codigo, const QByteArray& imagen) {
    general.ejecute(QStringLiteral("update compania set comp_logo = ? where comp_cod = ?"),
                    {Valor(imagen), Valor(codigo_compania(codigo))});
}

void configure_compania(Conexion& compania, const DatosCompania& d) {
    const QString general = QStringLiteral("GENERAL"), contabilidad = kModuloContabilidad;
    configure(compania, general, general, QStringLiteral("NOMBRE COMPAÑIA"), d.nombre);
    configure(compania, general, general, QStringLiteral("DIRECCION COMPAÑIA"), d.direccion);
    configure(compania, general, general, QStringLiteral("CIUDAD COMPAÑIA"), d.ciudad);
    configure(compania, contabilidad, general, QStringLiteral("NIT COMPAÑIA"), d.nit);
    const QString ano = QString::number(d.ano_inicio);
    configure(compania, contabilidad, general, QStringLiteral("AÑO DE INICIO"), ano);
    configure(compania, contabilidad, general, QStringLiteral("MES DE INICIO"),
              QString::number(d.mes_inicio));
    configure(compania, contabilidad, general, QStringLiteral("AÑO DE INICIO NIIF"), ano);
    configure(compania, contabilidad, general, QStringLiteral("AÑO BALANCE DE APERTURA NIIF"), ano);
}

QStringList companias(Conexion& general) {
    QStringList codigos;
    const auto filas = general.abra(QStringLiteral("select comp_cod from compania order by 1"));
    while (filas->siguiente())
        codigos << filas->valor(0).texto();
    return codigos;
}

void conceda_papel(Conexion& base, const QString& codigo) {
    base.ejecute(QStringLiteral("grant %1 to user \"%2\"")
                     .arg(QLatin1String(kRolPrograma), codigo_usuario(codigo)));
}

void registre_usuario_general(Conexion& general, const DatosUsuario& d) {
    // Volver a registrar a un administrador, por ejemplo para cambiarle la clave, no lo degrada.
    general.ejecute(
        QStringLiteral("merge into usuario u using (select cast(? as varchar(10)) cod,"
                       " cast(? as varchar(60)) nombre, cast(? as char(1)) adm from rdb$database) n"
                       " on u.usua_cod = n.cod when matched then update set usua_nombre = n.nombre,"
                       " usua_admin = iif(n.adm = 'S', 'S', u.usua_admin)"
                       " when not matched then insert (usua_cod, usua_nombre, usua_admin)"
                       " values (n.cod, n.nombre, n.adm)"),
        {Valor(codigo_usuario(d.codigo)), Valor(d.nombre), Valor(d.administrador ? "S" : "N")});
    conceda_papel(general, d.codigo);
}

void registre_usuario_compania(Conexion& compania, const DatosUsuario& d) {
    // El año y el periodo son del usuario desde que entra: solo se fijan al crearlo.
    compania.ejecute(
        QStringLiteral("merge into usuario u using (select cast(? as varchar(10)) cod,"
                       " cast(? as integer) sucursal, cast(? as varchar(4)) ano,"
                       " cast(? as integer) periodo from rdb$database) n on u.user_cod = n.cod"
                       " when matched then update set sucu_id = n.sucursal"
                       " when not matched then insert (user_cod, sucu_id, user_anocnt, user_percnt)"
                       " values (n.cod, n.sucursal, n.ano, n.periodo)"),
        {Valor(codigo_usuario(d.codigo)), Valor(d.sucursal), Valor(QString::number(d.ano)),
         Valor(d.periodo)});
    conceda_papel(compania, d.codigo);
}

void cree_usuario_servidor(Conexion& general, const QString& codigo, const QString& clave) {
    exija(!clave.isEmpty(), QStringLiteral("Falta la clave del usuario %1.").arg(codigo));
    // Entre comillas: ADMIN, entre otros, es palabra reservada.
    general.ejecute(QStringLiteral("create or alter user \"%1\" password %2")
                        .arg(codigo_usuario(codigo), QuotedStr(clave)));
}

void exija_registrado(Conexion& compania, const QString& usuario) {
    exija(!compania
               .consulte(QStringLiteral("select user_cod from usuario where user_cod = ?"),
                         {Valor(usuario)})
               .nulo(),
          QStringLiteral("El usuario %1 no está registrado en la compañía: regístrelo con "
                         "usuario-crear.")
              .arg(usuario));
}

void otorgue(Conexion& compania, const QString& usuario, const QString& modulo,
             const QVector<int>& opciones, bool conceder) {
    const QString codigo = codigo_usuario(usuario);
    exija_registrado(compania, codigo);
    Transaccion transaccion(compania, Transaccion::Modo::Escritura);
    const auto sentencia = compania.prepare(
        QStringLiteral("update or insert into acceso_usuario (user_cod, acus_modulo, acus_opcion,"
                       " acus_si) values (?,?,?,?) matching (user_cod, acus_modulo, acus_opcion)"),
        transaccion);
    for (const int opcion : opciones)
        sentencia->ejecute(transaccion, {Valor(codigo), Valor(modulo), Valor(opcion),
                                         Valor(conceder ? "S" : "N")});
    transaccion.confirme();
}

void configure(Conexion& compania, const QString& modulo, const QString& categoria,
               const QString& propiedad, const QString& valor) {
    exija_valor(compania, propiedad, valor);
    const qint64 filas = compania.ejecute(
        QStringLiteral("update configuracion set conf_valor = ? where conf_modulo = ?"
                       " and conf_categoria = ? and conf_propiedad = ?"),
        {Valor(valor), Valor(modulo), Valor(categoria), Valor(propiedad)});
    if (filas > 0)
        return;
    QStringList parecidas;
    const auto c = compania.abra(
        QStringLiteral("select conf_modulo, conf_categoria, conf_propiedad from configuracion where"
                       " conf_propiedad containing ? or (conf_modulo = ? and conf_categoria = ?)"
                       " order by 1, 2, 3"),
        {Valor(propiedad), Valor(modulo), Valor(categoria)});
    while (c->siguiente())
        parecidas << QStringLiteral("  %1 / %2 / %3")
                         .arg(c->valor(0).texto(), c->valor(1).texto(), c->valor(2).texto());
    QString texto =
        QStringLiteral("No existe la propiedad '%1' en %2 / %3.").arg(propiedad, modulo, categoria);
    if (!parecidas.isEmpty())
        texto += QStringLiteral(" Existen:\n") + parecidas.join('\n');
    throw ErrorDatos(texto);
}

QStringList sesiones_ajenas(Conexion& conexion) {
    QStringList sesiones;
    const auto c = conexion.abra(QStringLiteral(
        "select trim(mon$user), mon$remote_process, mon$remote_address, mon$remote_host"
        " from mon$attachments where mon$attachment_id <> current_connection"
        " and mon$system_flag = 0 order by mon$timestamp"));
    while (c->siguiente()) {
        const QString programa = c->valor(1).texto().section('/', -1);
        const QString equipo =
            c->valor(3).texto().isEmpty() ? c->valor(2).texto() : c->valor(3).texto();
        sesiones << QStringLiteral("%1 desde %2 (%3)")
                        .arg(c->valor(0).texto(),
                             programa.isEmpty() ? QStringLiteral("programa desconocido") : programa,
                             equipo.isEmpty() ? QStringLiteral("este equipo") : equipo);
    }
    return sesiones;
}

QString mensaje_claro(const ErrorDatos& falla) {
    const auto* motor = dynamic_cast<const ErrorBase*>(&falla);
    if (!motor)
        return falla.para_usuario();
    const QString& archivo = motor->causa().archivo;
    switch (motor->clase()) {
    case ClaseFalla::ClaveErrada:
        return QStringLiteral("El nombre de usuario o la clave son incorrectos.");
    case ClaseFalla::NoExiste:
        if (!archivo.isEmpty())
            return QStringLiteral("No se encontró la base de datos %1. Verifique la ubicación y el "
                                  "código de la compañía.")
                .arg(archivo);
        break;
    case ClaseFalla::SoloLectura:
        if (!archivo.isEmpty())
            return QStringLiteral("No hay permiso para abrir o escribir %1.").arg(archivo);
        break;
    case ClaseFalla::YaExiste:
        if (!archivo.isEmpty())
            return QStringLiteral("El archivo %1 ya existe.").arg(archivo);
        break;
    case ClaseFalla::Otra:
        // Quien administra puede hacer algo con lo que dijo el motor.
        return falla.para_usuario() + '\n' + falla.detalle();
    default:
        break;
    }
    return falla.para_usuario();
}
