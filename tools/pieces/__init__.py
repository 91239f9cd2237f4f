"""The drawings of the three families of chess pieces."""
