#pragma once
#include <QtCore>
#include <QtGui>
#include <QtSql>
#include <QtWidgets>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <vector>
