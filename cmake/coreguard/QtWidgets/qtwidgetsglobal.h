// Found before Qt's own header by quillon_core only: every QtWidgets header includes this one.
#error "quillon_core links QtCore and QtXml only: drawing and widgets belong in quillon_gui"
