-- Papel con que entra el programa. Se concede a cada usuario registrado.

CREATE ROLE QUORVEX_PROGRAMA;
