"""Generator of Zonara's shipped world files from public data sets."""
