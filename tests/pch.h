#pragma once
#include <QString>
#include <QVector>
#include <QtTest>
