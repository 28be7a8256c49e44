# Links from documents to files that are no part of the reference become their text.
s#\[([^]]*)\]\((\.\./)+(examples|tests|src|include|platform|scripts|cmake|natvis|packaging|[A-Z]+\.md)[^)]*\)#\1#g
# Pictures are found by their name alone, wherever the page stands.
s|(!\[[^]]*\]\()[^)]*/([^)/]*\.png\))|\1\2|g
