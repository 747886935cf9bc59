// Solo existe para que todas las pruebas compartan una cabecera precompilada.
