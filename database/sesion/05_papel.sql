-- Papel con que entra el programa: puede lo que las pantallas hacen y nada más. Se concede a cada
-- usuario de la compañía; qué puede dentro del programa lo deciden sus opciones.

CREATE ROLE QUORVEX_PROGRAMA;
