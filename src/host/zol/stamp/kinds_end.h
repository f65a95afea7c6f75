// Closes an attribute list: no kind outlives it.
#undef ZOL_UNKEYED
#undef ZOL_KEYED
#undef ZOL_PARAM
#undef ZOL_PARAM_REFERENCE
#undef ZOL_SCALAR
#undef ZOL_TEXT
#undef ZOL_REFERENCE
#undef ZOL_SINGLETON
#undef ZOL_VALUES
#undef ZOL_TEXTS
#undef ZOL_CHILDREN
#undef ZOL_REFERENCES
