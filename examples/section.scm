;; Cuts a model open through its middle and closes the solids where they are cut.
;; pellux-batch frames.step --up z --size 640x400 --script section.scm --output section.png

(define box (doc:bounding-box))
(define middle (map (lambda (low high) (/ (+ low high) 2)) (list-head box 3) (list-tail box 3)))

(view:iso)
(view:zoom-to-box 12 12 22 88 88 112)
(view:section middle '(1 0 0))       ; what lies on the side of +x goes
(app:print "sections: " (view:sections))

;; What is cut away is not picked.
(define ent (app:pick-face 90 10 1000 0 0 -1 0))
(app:print "a ray down onto what is cut away meets: " (if ent (entity:type ent) "nothing"))
