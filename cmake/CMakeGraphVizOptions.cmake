# What the graph of the targets shows: the project's own libraries and programs, and what they link.
set(GRAPHVIZ_GRAPH_NAME "Quorvantel")
set(GRAPHVIZ_GRAPH_HEADER "node [fontname=\"sans-serif\", fontsize=11]; rankdir=TB;")
set(GRAPHVIZ_EXTERNAL_LIBS FALSE)
set(GRAPHVIZ_UNKNOWN_LIBS FALSE)
set(GRAPHVIZ_INTERFACE_LIBS FALSE)
set(GRAPHVIZ_OBJECT_LIBS FALSE)
set(GRAPHVIZ_GENERATE_PER_TARGET FALSE)
set(GRAPHVIZ_GENERATE_DEPENDERS FALSE)
