// Closes the list of types: no kind outlives it.
#undef ZOL_ANY_TYPE
#undef ZOL_ENUM_TYPE
#undef ZOL_RECORD_TYPE
#undef ZOL_ENTITY_TYPE
#undef ZOL_KEYED_ENTITY_TYPE
#undef ZOL_ROOT_TYPE
