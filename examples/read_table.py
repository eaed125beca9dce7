"""Reads a data set through the flat C interface, as any language can that calls C.

    python3 read_table.py LIBRARY FILE.vdo
"""

import ctypes
import sys


class Table:
    """A data set as a list of rows; None where a value is missing."""

    def __init__(self, library, path):
        lib = ctypes.CDLL(library)
        lib.ZEMVATable_GetMessage.restype = ctypes.c_char_p
        handle = ctypes.c_void_p()
        status = lib.ZEMVATable_Open(path.encode(), ctypes.byref(handle))
        if status:
            raise OSError(status, lib.ZEMVATable_GetMessage(status).decode("cp1252"))
        rows, columns = ctypes.c_int(), ctypes.c_int()
        lib.ZEMVATable_GetSize(handle, ctypes.byref(rows), ctypes.byref(columns))
        count, width = rows.value, columns.value
        # One call brings all values.
        values = (ctypes.c_float * (count * width))()
        missing = ctypes.c_float(float("nan"))
        lib.ZEMVATable_GetRows(handle, 1, count, missing, values)
        self.values = [
            [None if v != v else v for v in values[i * width : (i + 1) * width]]
            for i in range(count)
        ]
        self.variables = self._names(lib.ZEMVATable_GetVarNames, handle, width)
        self.observations = self._names(lib.ZEMVATable_GetObsNames, handle, count)
        lib.ZEMVATable_Close(handle)

    @staticmethod
    def _names(get_names, handle, count, field=64):
        names = ctypes.create_string_buffer(count * field)
        get_names(handle, 1, count, field, names)
        fields = (names.raw[i * field : (i + 1) * field] for i in range(count))
        return [name.split(b"\0", 1)[0].decode("cp1252") for name in fields]


if __name__ == "__main__":
    table = Table(sys.argv[1], sys.argv[2])
    print(len(table.values), "observations of", ", ".join(table.variables))
    print(table.observations[0], table.values[0])
