#pragma once

class Connection;

// Number columns refuse text, so that a mistyped value fails: without this a
// mark column would keep 'D' or 'abc', and text sorts above every number.
// Adds a BEFORE INSERT and a BEFORE UPDATE trigger to each table that has
// number columns; replaces any guards made before.
void Install_Type_Guards(Connection &conn);
