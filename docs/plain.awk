# What the reference lists without words of its own: Qt's event handlers, comparisons, iterators' names, and fields
# whose name says all.

/^ *(typedef [^;]*|template <class List> .*)/ ||
/(Event|event)\(Q[A-Za-z]*\* in_pEvent\) override;$/ ||
/bool operator\(\)\(const sEnumItem&/ ||
/^ +[A-Za-z][A-Za-z0-9_:<>*, ]* [a-z][A-Za-z_]*( = [^();]*)?;$/ {
    if (previous !~ /^ *\/\/\//)
        $0 = $0 " ///< &#8203;"
}
{ previous = $0; print }
